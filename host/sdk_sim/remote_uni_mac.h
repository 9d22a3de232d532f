// SPDX-License-Identifier: Apache-2.0
// The first user port of an ONU, and who is plugged into it.
#pragma once

#include <array>
#include <cstdint>

#include <epon/sdk/remote_uni_mac.h>

namespace sdk_sim {

class ScenarioReader;

// The other end of the cable. Stays when the ONU loses its registration.
struct UniPartner {
    bool is_connected = true;
    bool negotiates = true;
    std::uint16_t speed = 1000; // Mbit/s, the highest when it negotiates
    bool has_full_duplex = true;
    bool has_pause = true;
    bool has_asymmetric_pause = false;
    bool is_multi_port = false;
};

struct UniPort {
    std::uint8_t cpu = 1;
    std::uint8_t datapath = 1;
    REMOTE_uni_port_configuration configuration{REMOTE_UNI_GMII,
                                                REMOTE_UNI_100M,
                                                REMOTE_UNI_FULL_DUPLEX,
                                                1,
                                                1,
                                                0,
                                                1,
                                                1,
                                                1,
                                                1,
                                                1,
                                                0,
                                                1,
                                                0,
                                                0,
                                                1,
                                                REMOTE_UNI_SINGLE_PORT,
                                                0,
                                                1};
    std::array<std::uint32_t, REMOTE_UNI_POWER_SAVE + 1> extended{}; // values by item
};

// The table "uni_partner" of an ONU.
void read_uni_partner(ScenarioReader& reader, UniPartner* partner);

} // namespace sdk_sim
