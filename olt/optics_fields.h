// SPDX-License-Identifier: Apache-2.0
// The settings of an OLT's optics: which there are for each rate, how they are read and how they are listed.
#pragma once

#include <span>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/output.h"

namespace epon {

struct OpticsField {
    const char* parameter; // as refusals call it; a word is of a type of that name unless its table has one
    Field field;           // an int32 of OLT_optics
};

// In the order of the grammars. The 1G settings of a dual OLT are the first ones of those of an OLT of mixed rates.
enum { DUAL_1G_FIELD_COUNT = 19, MIXED_1G_FIELD_COUNT = 31, MIXED_10G_FIELD_COUNT = 37 };
std::span<const OpticsField> optics_fields_of(int32_t rate);

} // namespace epon
