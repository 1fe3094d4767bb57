// SPDX-License-Identifier: BSD-3-Clause
// Path and phase-name helpers.
#pragma once

#include <string>
#include <string_view>

std::string tgNormalizePath(std::string_view path);
std::string tgStripHostRoot(std::string_view path);
std::string cleanPhaseName(std::string_view phaseName, bool stripCustomization);
void hostRootPathSet(std::string_view path);
const std::string& hostRootPath();
