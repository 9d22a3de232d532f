// SPDX-License-Identifier: Apache-2.0
// What an ONU tells of itself.
#pragma once

#include <epon/sdk/ctc_identity.h>

namespace sdk_sim {

class ScenarioReader;
struct Onu;

struct OnuIdentity {
    CTC_serial_number serial{}; // its onu_id is the ONU's address
    CTC_firmware_version firmware{};
    CTC_chipset_id chipset{};
};

// As the ONU's rate, its serial number and its versions suggest.
OnuIdentity default_identity(const Onu& onu);
// The table "identity" of an ONU.
void read_identity(ScenarioReader& reader, OnuIdentity* identity);

} // namespace sdk_sim
