// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler fill_olt_optics;
}

namespace epon {

// What was filled for a rate. It belongs to the console server thread and is the same for all its sessions.
struct FilledOptics {
    OLT_optics settings;
    bool is_filled;
    bool is_dual; // without the settings of mixed rates
};

const FilledOptics& filled_optics(int32_t rate); // an enum OpticsRate

void install_fill_optics();

} // namespace epon
