// SPDX-License-Identifier: Apache-2.0
// What an OLT has on its I2C buses.
#pragma once

#include <array>
#include <cstdint>
#include <map>

#include <epon/sdk/i2c_register.h>

namespace sdk_sim {

using I2cRegisters = std::array<std::uint8_t, I2C_REGISTER_LIMIT>;
using I2cBus = std::map<std::int32_t, I2cRegisters>; // by device address
using I2cBuses = std::array<I2cBus, I2C_ACCESS_TYPE_COUNT>;

// The modules of an OLT as they leave the factory. The slot of the secondary OTDR module is empty.
I2cBuses fitted_modules();

} // namespace sdk_sim
