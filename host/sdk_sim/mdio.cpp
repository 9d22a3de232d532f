// SPDX-License-Identifier: Apache-2.0
// Registers of the PHYs behind an OLT's management interface.
#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

constexpr int32_t CONTROL_REGISTER = 0;
constexpr int32_t CONTROL_RESET = 0x8000;
constexpr int32_t VALUE_LIMIT = 65536;

bool is_below(int32_t value, int32_t limit)
{
    return value >= 0 && value < limit;
}

// The last number of a key is the register, what is before it the device.
template <std::size_t Size>
void write(std::map<std::array<int32_t, Size>, int32_t>* registers, const std::array<int32_t, Size>& key, int32_t value)
{
    if (key.back() == CONTROL_REGISTER && (value & CONTROL_RESET) != 0) {
        std::erase_if(*registers, [&key](const auto& entry) {
            return std::equal(key.begin(), key.end() - 1, entry.first.begin());
        });
        value &= ~CONTROL_RESET;
    }
    (*registers)[key] = value;
}

const Operation write_mdio_register("NEP_write_mdio_register", GENERAL);
const Operation write_mdio45_register("NEP_write_mdio45_register", GENERAL);

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_write_mdio_register(int16_t olt_id, int32_t phy, int32_t address, int32_t value)
{
    return on_olt(write_mdio_register, olt_id, in(olt_id, phy, address, value), out(), [&](Olt& olt) {
        if (!is_below(phy, MDIO_ADDRESS_LIMIT) || !is_below(address, MDIO_ADDRESS_LIMIT) ||
            !is_below(value, VALUE_LIMIT))
            return PARAMETER_ERROR;
        write(&olt.configuration.mdio.registers, {phy, address}, value);
        return SUCCESS;
    });
}

int16_t NEP_write_mdio45_register(int16_t olt_id, int32_t port, int32_t device, int32_t address, int32_t value)
{
    return on_olt(write_mdio45_register, olt_id, in(olt_id, port, device, address, value), out(), [&](Olt& olt) {
        if (!is_below(port, MDIO_ADDRESS_LIMIT) || !is_below(device, MDIO_ADDRESS_LIMIT) ||
            !is_below(address, MDIO45_REGISTER_LIMIT) || !is_below(value, VALUE_LIMIT))
            return PARAMETER_ERROR;
        write(&olt.configuration.mdio.registers45, {port, device, address}, value);
        return SUCCESS;
    });
}
