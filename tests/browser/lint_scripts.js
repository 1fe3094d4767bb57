// SPDX-License-Identifier: BSD-3-Clause
// Syntax check of script files: each is compiled, never run. Exits non-zero
// and names every file that does not compile.
'use strict';
const fs = require('fs');
const vm = require('vm');

let failed = 0;
const files = process.argv.slice(2);
for (const file of files) {
  try {
    new vm.Script(fs.readFileSync(file, 'utf8'), { filename: file });
  } catch (error) {
    failed += 1;
    console.error(`${file}: ${error.message}`);
    if (error.stack) console.error(error.stack.split('\n').slice(0, 3).join('\n'));
  }
}
console.log(`lint: ${files.length - failed} of ${files.length} script files compile`);
process.exit(failed === 0 && files.length > 0 ? 0 : 1);
