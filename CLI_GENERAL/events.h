// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace epon {

// Registers the printers of all SDK events and removes them. 0, or -1 at the first refusal.
int register_event_printers();
int delete_event_printers();

} // namespace epon
