// SPDX-License-Identifier: Apache-2.0
// Serial number, firmware and chipset of an ONU.
#include "host/sdk_sim/ctc_identity.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "host/sdk_sim/ctc_operation.h"
#include "host/sdk_sim/scenario_reader.h"

namespace sdk_sim {

template <>
inline constexpr auto record_fields<CTC_serial_number> = std::tuple(
    record_field("vendor_id", &CTC_serial_number::vendor_id), record_field("onu_model", &CTC_serial_number::onu_model),
    record_field("onu_id", &CTC_serial_number::onu_id),
    record_field("hardware_version", &CTC_serial_number::hardware_version),
    record_field("software_version", &CTC_serial_number::software_version));

template <>
inline constexpr auto record_fields<CTC_firmware_version> = std::tuple(record_field("version",
                                                                                    &CTC_firmware_version::version));

template <>
inline constexpr auto record_fields<CTC_chipset_id> = std::tuple(
    record_field("vendor_id", &CTC_chipset_id::vendor_id), record_field("chip_model", &CTC_chipset_id::chip_model),
    record_field("revision", &CTC_chipset_id::revision), record_field("year", &CTC_chipset_id::year),
    record_field("month", &CTC_chipset_id::month), record_field("day", &CTC_chipset_id::day));

namespace {

const Operation get_serial_number("CTC_STACK_get_onu_serial_number", CTC_STACK);
const Operation get_firmware_version("CTC_STACK_get_firmware_version_extended", CTC_STACK);
const Operation get_chipset_id("CTC_STACK_get_chipset_id", CTC_STACK);

constexpr std::int32_t LAST_DATE = 999999;

template <std::size_t Size>
void store(char (&field)[Size], std::string_view text)
{
    std::fill(field, field + Size, '\0');
    text.copy(field, Size);
}

template <std::size_t Size>
void read_field(ScenarioReader& reader, const char* key, char (&field)[Size])
{
    if (!reader.has(key)) return;
    std::string text;
    reader.text(key, Size, &text);
    store(field, text);
}

std::string dotted(const OLT_version& version)
{
    std::string text;
    for (const std::uint16_t number : version.number)
        text += (text.empty() ? "" : ".") + std::to_string(number);
    return text;
}

// "140321" is the 21st of March 2014.
void read_date(ScenarioReader& reader, CTC_chipset_id* chipset)
{
    if (!reader.has("chipset_date")) return;
    std::int32_t date = 0;
    reader.number("chipset_date", 101, LAST_DATE, &date);
    chipset->year = static_cast<std::uint8_t>(date / 10000);
    chipset->month = static_cast<std::uint8_t>(date / 100 % 100);
    chipset->day = static_cast<std::uint8_t>(date % 100);
}

} // namespace

OnuIdentity default_identity(const Onu& onu)
{
    struct Product {
        std::uint32_t model; // four characters
        std::uint16_t chip_model;
        std::uint8_t year;
    };
    // By rate: E1G1, EXG1, EXGX.
    constexpr Product products[] = {{0x45314731, 0x1001, 9}, {0x45584731, 0x1010, 12}, {0x45584758, 0x1011, 14}};
    const Product& product = products[static_cast<std::size_t>(onu.rate)];
    OnuIdentity identity;
    const std::string_view serial_number = onu.serial_number;
    store(identity.serial.vendor_id, serial_number.empty() ? "EPON" : serial_number.substr(0, CTC_VENDOR_ID_SIZE));
    identity.serial.onu_model = product.model;
    const OnuDevice& device = onu.device;
    store(identity.serial.hardware_version,
          "V" + std::to_string(device.hardware_major) + "." + std::to_string(device.hardware_minor));
    store(identity.serial.software_version, "V" + dotted(device.firmware_version));
    store(identity.firmware.version, dotted(device.firmware_version));
    store(identity.chipset.vendor_id, "EP");
    identity.chipset.chip_model = product.chip_model;
    identity.chipset.revision = 1;
    identity.chipset.year = product.year;
    identity.chipset.month = identity.chipset.day = 1;
    return identity;
}

void read_identity(ScenarioReader& reader, OnuIdentity* identity)
{
    read_field(reader, "vendor_id", identity->serial.vendor_id);
    reader.number("model", 0, UINT32_MAX, &identity->serial.onu_model);
    read_field(reader, "hardware_version", identity->serial.hardware_version);
    read_field(reader, "software_version", identity->serial.software_version);
    read_field(reader, "firmware_version", identity->firmware.version);
    read_field(reader, "chipset_vendor", identity->chipset.vendor_id);
    reader.number("chipset_model", 0, UINT16_MAX, &identity->chipset.chip_model);
    reader.number("chipset_revision", 0, UINT8_MAX, &identity->chipset.revision);
    read_date(reader, &identity->chipset);
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t CTC_STACK_get_onu_serial_number(int16_t olt_id, int16_t onu_id, CTC_serial_number* serial_number)
{
    const auto read = [](const Onu& onu, CTC_serial_number& record) {
        record = onu.identity.serial;
        std::copy(onu.mac.begin(), onu.mac.end(), record.onu_id);
    };
    return get_ctc(get_serial_number, olt_id, onu_id, read, serial_number);
}

int16_t CTC_STACK_get_firmware_version_extended(int16_t olt_id, int16_t onu_id, CTC_firmware_version* version)
{
    const auto read = [](const Onu& onu, CTC_firmware_version& record) { record = onu.identity.firmware; };
    return get_ctc(get_firmware_version, olt_id, onu_id, read, version);
}

int16_t CTC_STACK_get_chipset_id(int16_t olt_id, int16_t onu_id, CTC_chipset_id* chipset)
{
    const auto read = [](const Onu& onu, CTC_chipset_id& record) { record = onu.identity.chipset; };
    return get_ctc(get_chipset_id, olt_id, onu_id, read, chipset);
}
