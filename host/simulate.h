// SPDX-License-Identifier: Apache-2.0
// The "simulate" commands: an operator of the lab drives the simulated network from the console itself.
#pragma once

// Installs them in the enable and configuration nodes, which must exist.
void install_simulate_commands();
