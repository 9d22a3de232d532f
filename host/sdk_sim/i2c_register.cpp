// SPDX-License-Identifier: Apache-2.0
// The devices on an OLT's I2C buses: modules with the memory of an SFP (SFF-8472).
#include "host/sdk_sim/i2c_register.h"

#include <algorithm>
#include <numeric>
#include <string_view>

#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

// Identity, at 0xA0. What the manufacturer wrote is protected, the user's half is not.
constexpr int USER_AREA = 128;
constexpr int IDENTITY_CHECKSUM = 63;
constexpr int EXTENDED_CHECKSUM = 95;
// Diagnostics, at 0xA2: what the module measures cannot be written.
constexpr int TEMPERATURE = 96; // 1/256 degree Celsius
constexpr int SUPPLY_VOLTAGE = 98;
constexpr int BIAS_CURRENT = 100;
constexpr int SENT_POWER = 102;
constexpr int RECEIVED_POWER = 104;
constexpr int MEASUREMENTS_END = 106;

struct Module {
    I2cAccessType bus;
    std::string_view part;
    std::string_view serial_number;
    std::uint8_t rate; // 100 Mbit/s
    std::uint16_t wavelength;
};

constexpr Module modules[] = {
    {I2C_ACCESS_HW, "OLT-BOARD", "VNSB000001", 12, 1490},
    {I2C_ACCESS_PON_PRIMARY, "OLT-PX20+", "VNSP000001", 12, 1490},
    {I2C_ACCESS_PON_SECONDARY, "OLT-PRX30", "VNSP000002", 103, 1577},
    {I2C_ACCESS_OTDR_PRIMARY, "OTDR-1625", "VNST000001", 1, 1625},
};

void put_text(I2cRegisters* registers, int address, std::size_t size, std::string_view text)
{
    std::fill_n(registers->begin() + address, size, ' ');
    std::copy_n(text.begin(), std::min(size, text.size()), registers->begin() + address);
}

void put_16(I2cRegisters* registers, int address, int value)
{
    (*registers)[address] = static_cast<std::uint8_t>(value >> 8);
    (*registers)[address + 1] = static_cast<std::uint8_t>(value);
}

std::uint8_t sum(const I2cRegisters& registers, int begin, int end)
{
    return std::accumulate(registers.begin() + begin, registers.begin() + end, std::uint8_t{});
}

I2cRegisters identity_of(const Module& module)
{
    I2cRegisters identity{};
    identity[0] = 0x03; // an SFP
    identity[1] = 0x04; // that is identified by this memory
    identity[2] = 0x01; // with an SC connector
    identity[11] = 0x01;
    identity[12] = module.rate;
    identity[14] = 20; // km of single mode fiber
    put_text(&identity, 20, 16, "VNS OPTICS");
    identity[37] = 0x02;
    identity[38] = 0x4E;
    identity[39] = 0x50;
    put_text(&identity, 40, 16, module.part);
    put_text(&identity, 56, 4, "1.0");
    put_16(&identity, 60, module.wavelength);
    identity[IDENTITY_CHECKSUM] = sum(identity, 0, IDENTITY_CHECKSUM);
    put_text(&identity, 68, 16, module.serial_number);
    put_text(&identity, 84, 8, "240311");
    identity[92] = 0x68; // diagnostics, calibrated by the module
    identity[94] = 0x05;
    identity[EXTENDED_CHECKSUM] = sum(identity, IDENTITY_CHECKSUM + 1, EXTENDED_CHECKSUM);
    return identity;
}

I2cRegisters diagnostics()
{
    I2cRegisters registers{};
    put_16(&registers, 0, 85 * 256);           // highest temperature
    put_16(&registers, 2, (256 - 40) * 256);   // lowest
    put_16(&registers, SUPPLY_VOLTAGE, 33000); // 100 uV
    put_16(&registers, BIAS_CURRENT, 12500);   // 2 uA
    put_16(&registers, SENT_POWER, 31623);     // 0.1 uW: 5 dBm
    put_16(&registers, RECEIVED_POWER, 16);    // -28 dBm
    return registers;
}

bool is_protected(std::int32_t device, std::int32_t address)
{
    if (device == I2C_MODULE_IDENTITY) return address < USER_AREA;
    return address >= TEMPERATURE && address < MEASUREMENTS_END;
}

std::int16_t read(Olt& olt, std::int32_t access_type, std::int32_t device, std::int32_t address, std::int32_t size,
                  std::uint8_t* data)
{
    if (access_type < 0 || access_type >= I2C_ACCESS_TYPE_COUNT || address < 0 || size < 0 ||
        address >= I2C_REGISTER_LIMIT || size >= I2C_REGISTER_LIMIT || address + size > I2C_REGISTER_LIMIT)
        return PARAMETER_ERROR;
    I2cBus& bus = olt.configuration.i2c_buses[access_type];
    const auto found = bus.find(device);
    if (found == bus.end()) return device < 0 || device >= 256 || device % 2 != 0 ? PARAMETER_ERROR : HARDWARE_ERROR;
    // Modules are as warm as the OLT.
    if (device == I2C_MODULE_DIAGNOSTICS)
        put_16(&found->second, TEMPERATURE, olt.firmware_console.temperature * 256 / 10);
    std::copy_n(found->second.begin() + address, size, data);
    return SUCCESS;
}

std::int16_t write(Olt& olt, std::int32_t access_type, std::int32_t device, std::int32_t address, std::int32_t data)
{
    std::uint8_t before = 0;
    if (data < 0 || data > 255) return PARAMETER_ERROR;
    const std::int16_t code = read(olt, access_type, device, address, 1, &before);
    if (code != SUCCESS) return code;
    if (is_protected(device, address)) return HARDWARE_ERROR;
    olt.configuration.i2c_buses[access_type][device][address] = static_cast<std::uint8_t>(data);
    return SUCCESS;
}

const Operation read_i2c_register("NEP_read_i2c_register", GENERAL);
const Operation write_i2c_register("NEP_write_i2c_register", GENERAL);
const Operation read_i2c_register_extended("NEP_read_i2c_register_extended", GENERAL);
const Operation write_i2c_register_extended("NEP_write_i2c_register_extended", GENERAL);

} // namespace

I2cBuses fitted_modules()
{
    I2cBuses buses;
    for (const Module& module : modules)
        buses[module.bus] = {{I2C_MODULE_IDENTITY, identity_of(module)}, {I2C_MODULE_DIAGNOSTICS, diagnostics()}};
    return buses;
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_read_i2c_register(int16_t olt_id, int32_t device, int32_t address, int32_t* data)
{
    return on_olt(read_i2c_register, olt_id, in(olt_id, device, address), out(data), [&](Olt& olt) {
        std::uint8_t octet = 0;
        const std::int16_t code = read(olt, I2C_ACCESS_HW, device, address, 1, &octet);
        *data = octet;
        return code;
    });
}

int16_t NEP_write_i2c_register(int16_t olt_id, int32_t device, int32_t address, int32_t data)
{
    return on_olt(write_i2c_register, olt_id, in(olt_id, device, address, data), out(),
                  [&](Olt& olt) { return write(olt, I2C_ACCESS_HW, device, address, data); });
}

int16_t NEP_read_i2c_register_extended(int16_t olt_id, int32_t access_type, int32_t device, int32_t address,
                                       int32_t size, uint8_t* data)
{
    const auto octets = as_octets(data, size > 0 && size < I2C_REGISTER_LIMIT ? static_cast<std::size_t>(size) : 0);
    return on_olt(read_i2c_register_extended, olt_id, in(olt_id, access_type, device, address, size), out(octets),
                  [&](Olt& olt) { return read(olt, access_type, device, address, size, data); });
}

int16_t NEP_write_i2c_register_extended(int16_t olt_id, int32_t access_type, int32_t device, int32_t address,
                                        int32_t data)
{
    return on_olt(write_i2c_register_extended, olt_id, in(olt_id, access_type, device, address, data), out(),
                  [&](Olt& olt) { return write(olt, access_type, device, address, data); });
}
