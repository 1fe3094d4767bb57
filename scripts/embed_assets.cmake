# SPDX-License-Identifier: BSD-3-Clause
# Writes OUT, a C++ source that holds each file of INPUTS as a string constant
# named after the file (dots and dashes become underscores), plus a lookup table.
set(body "// Generated from report/assets; do not edit.\n#include <string_view>\n#include <utility>\n\nnamespace tg::assets {\n")
set(table "")
string(REPLACE "|" ";" INPUTS "${INPUTS}")
foreach(input IN LISTS INPUTS)
  get_filename_component(name ${input} NAME)
  string(MAKE_C_IDENTIFIER ${name} ident)
  file(READ ${input} text)
  # Raw string literal with a delimiter that report text never contains.
  string(APPEND body "extern const std::string_view ${ident};\nconst std::string_view ${ident} = R\"tg_asset(${text})tg_asset\";\n")
  string(APPEND table "    {\"${name}\", ${ident}},\n")
endforeach()
string(APPEND body "\nextern const std::pair<std::string_view, std::string_view> kAll[];\nextern const std::size_t kAllCount;\nconst std::pair<std::string_view, std::string_view> kAll[] = {\n${table}    {\"\", \"\"}};\nconst std::size_t kAllCount = sizeof(kAll) / sizeof(kAll[0]) - 1;\n}  // namespace tg::assets\n")
file(WRITE ${OUT}.tmp "${body}")
execute_process(COMMAND ${CMAKE_COMMAND} -E copy_if_different ${OUT}.tmp ${OUT})
