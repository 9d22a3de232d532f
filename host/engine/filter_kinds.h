// SPDX-License-Identifier: Apache-2.0
// The filters, each made from its argument.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/engine/filter.h"

namespace engine {

using MakeFilter = std::unique_ptr<Filter>(std::string_view argument, FilterWishes& wishes, std::string* error);

MakeFilter make_include, make_exclude, make_begin, make_section, make_count, make_no_more, make_json, make_save;

} // namespace engine
