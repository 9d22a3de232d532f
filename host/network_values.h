// SPDX-License-Identifier: Apache-2.0
#pragma once

// Lets "?" and TAB list the OLTs, ONUs and links that are there: by index and by address.
void install_network_values();
