// SPDX-License-Identifier: Apache-2.0
// What became of a start of remote management whose printer was refused, before any start that went well.
#pragma once

struct RefusedStart {
    int result = 0;
    int remote_commands = 0; // that were installed afterwards
};
extern RefusedStart refused_start;
