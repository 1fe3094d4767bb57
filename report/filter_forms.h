// SPDX-License-Identifier: BSD-3-Clause
// The filter and sort forms beneath the detail and call tree tables: text
// cells for a regular expression per name attribute, and sort cells that take
// the rank of their column.
#pragma once

#include <string>
#include <string_view>

// The detail table's form; its sort cells follow the metric and report kind.
std::string writeFilterForm(std::string_view metric, bool isComparison);
// The call tree's form: filters only.
std::string writeCallTreeFilterForm();
