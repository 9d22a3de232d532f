// SPDX-License-Identifier: Apache-2.0
// OLTs: presence, parameters, versions, reset and recovery.
#include "host/sdk_sim/olt.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>

#include "host/sdk_sim/gate.h"
#include "host/sdk_sim/life.h"
#include "host/sdk_sim/scenario_reader.h"

namespace sdk_sim {

namespace {

const Operation olt_exists("Olt_exists", GENERAL);
const Operation add_olt("NEP_add_olt", GENERAL);
const Operation reset_olt("NEP_reset_olt", GENERAL);
const Operation olt_host_recovery("NEP_olt_host_recovery", GENERAL);
const Operation update_olt_parameters("NEP_update_olt_parameters", GENERAL);
const Operation get_olt_parameters("NEP_get_olt_parameters", GENERAL);
const Operation get_olt_versions("NEP_get_olt_versions", GENERAL);
const Operation get_pon_mac_name("Get_pon_mac_name", GENERAL);

// --- Parameters --------------------------------------------------------------------------------------------------

constexpr int32_t MIN_RTT_LIMIT = 32767;
constexpr int32_t MAX_RTT_LIMIT = 65534;
constexpr int32_t OUI_LIMIT = 0xFFFFFF;
constexpr int32_t BAUD_RATE_CODE_LIMIT = 11;

template <class Field>
bool is_changed(Field value)
{
    return value != static_cast<Field>(-1);
}

// Takes a new value over unless it means "leave it". False when it is out of range.
template <class Field>
bool take(Field value, int32_t min, int32_t max, Field* field)
{
    if (!is_changed(value)) return true;
    if (value < min || value > max) return false;
    *field = value;
    return true;
}

// All fields or none.
int16_t update(const OLT_update_parameters& changes, OLT_update_parameters* parameters)
{
    constexpr int32_t ANY_MIN = std::numeric_limits<int32_t>::min();
    constexpr int32_t ANY_MAX = std::numeric_limits<int32_t>::max();
    OLT_update_parameters updated = *parameters;
    const bool in_range =
        !is_changed(changes.reserved_4) && !is_changed(changes.reserved_7) &&
        take(changes.min_rtt, 0, MIN_RTT_LIMIT, &updated.min_rtt) &&
        take(changes.max_rtt, 0, MAX_RTT_LIMIT, &updated.max_rtt) &&
        take(changes.grant_filtering, 0, 1, &updated.grant_filtering) &&
        take(changes.vendor_specific_1g, ANY_MIN, ANY_MAX, &updated.vendor_specific_1g) &&
        take(changes.vendor_specific_10g, ANY_MIN, ANY_MAX, &updated.vendor_specific_10g) &&
        take(changes.oui_1g, 0, OUI_LIMIT, &updated.oui_1g) && take(changes.oui_10g, 0, OUI_LIMIT, &updated.oui_10g) &&
        take(changes.uart_baud_rate, 0, BAUD_RATE_CODE_LIMIT, &updated.uart_baud_rate) &&
        take(changes.llid_assignment, LLID_ASSIGNMENT_ALL, LLID_ASSIGNMENT_EVEN, &updated.llid_assignment) &&
        take(changes.sled_strobe, 0, 1, &updated.sled_strobe) && take(changes.sled_mute, 0, 1, &updated.sled_mute);
    if (!in_range || updated.min_rtt > updated.max_rtt) return PARAMETER_ERROR;
    if (is_changed(changes.i2c_speed)) {
        if (changes.i2c_speed != I2C_SPEED_FAST && changes.i2c_speed != I2C_SPEED_STANDARD) return PARAMETER_ERROR;
        updated.i2c_speed = changes.i2c_speed;
    }
    *parameters = updated;
    return SUCCESS;
}

// --- Adding ------------------------------------------------------------------------------------------------------

// The image shows as the file name that it is, or as its first octets.
struct FirmwareValue {
    const OLT_firmware_source* source;
};

bool is_null(const FirmwareValue& value)
{
    return value.source == nullptr;
}

void append_value(std::string* line, const FirmwareValue& value)
{
    constexpr uint32_t OCTETS_SHOWN = 8;
    const OLT_firmware_source* source = value.source;
    if (source == nullptr) {
        *line += "null";
        return;
    }
    *line += "{location=" + std::to_string(source->location) + ",image=";
    if (source->image == nullptr) {
        *line += "null";
    } else if (source->location == FIRMWARE_FROM_FILE) {
        append_quoted(line, static_cast<const char*>(source->image));
    } else {
        append_octets(line, static_cast<const uint8_t*>(source->image), std::min(source->size, OCTETS_SHOWN));
        if (source->size > OCTETS_SHOWN) *line += "..";
    }
    *line += ",size=" + std::to_string(source->size) + '}';
}

// The file can be read and is not empty.
bool is_image_file(const char* path)
{
    std::FILE* file = std::fopen(path, "rb");
    if (file == nullptr) return false;
    const bool has_content = std::fgetc(file) != EOF;
    std::fclose(file);
    return has_content;
}

bool is_firmware(const OLT_firmware_source& source)
{
    switch (source.location) {
    case FIRMWARE_FROM_FLASH:
        return true;
    case FIRMWARE_FROM_FILE:
        return source.image != nullptr && is_image_file(static_cast<const char*>(source.image));
    case FIRMWARE_FROM_MEMORY:
        return source.image != nullptr && source.size > 0;
    default:
        return false;
    }
}

// An address of one device, and not all zeros.
bool is_device_address(const uint8_t address[6])
{
    return (address[0] & 1) == 0 && std::any_of(address, address + 6, [](uint8_t octet) { return octet != 0; });
}

int16_t add(Network& network, int16_t olt_id, const uint8_t address[6])
{
    if (olt_id < 0 || olt_id >= OLT_INDEX_LIMIT || !is_device_address(address)) return PARAMETER_ERROR;
    Olt& olt = network.olts[olt_id];
    if (olt.is_present) return PARAMETER_ERROR;
    if (!olt.is_known || !olt.is_powered) return HARDWARE_ERROR; // nothing answers at this place
    std::copy(address, address + olt.mac.size(), olt.mac.begin());
    start_olt(network, olt);
    return SUCCESS;
}

// --- Recovery ----------------------------------------------------------------------------------------------------

constexpr uint32_t RECOVERY_TIME_MS = 200;
constexpr uint32_t RECOVERY_TIME_PER_ONU_MS = 5;

// Whole lines only, as many as fit.
void write_report(const std::string& report, uint8_t buffer[OLT_RECOVERY_BUFFER_SIZE])
{
    std::size_t length = report.size();
    if (length >= OLT_RECOVERY_BUFFER_SIZE) length = report.rfind('\n', OLT_RECOVERY_BUFFER_SIZE - 2) + 1;
    std::memcpy(buffer, report.data(), length);
    buffer[length] = '\0';
}

std::string recovery_report(const Olt& olt, uint32_t elapsed)
{
    if (olt.recovery_fails) return "OLT " + std::to_string(olt.id) + ": the firmware does not tell its state\n";
    std::string report = "OLT " + std::to_string(olt.id) + ": " + std::to_string(count_registered(olt)) +
                         " ONUs recovered in " + std::to_string(elapsed) + " ms\n";
    for (const auto& [id, onu] : olt.onus) {
        if (!counts_as_registered(onu)) continue;
        report += "ONU " + std::to_string(id) + ": ";
        append_mac(&report, onu.mac.data());
        report += '\n';
    }
    return report;
}

// --- Names -------------------------------------------------------------------------------------------------------

constexpr const char* pon_mac_names[] = {"none", "GMII",  "SGMII",      "1000BASE-X", "XGMII",
                                         "XAUI", "RXAUI", "10GBASE-KR", "10GBASE-R"};

const char* pon_mac_name(int32_t type)
{
    return type >= 0 && type < static_cast<int32_t>(std::size(pon_mac_names)) ? pon_mac_names[type] : "unknown";
}

} // namespace

OLT_update_parameters default_olt_parameters()
{
    OLT_update_parameters parameters;
    std::memset(&parameters, 0xFF, sizeof(parameters)); // what is reserved stays so
    parameters.min_rtt = 0;
    parameters.max_rtt = 12500;
    parameters.grant_filtering = 1;
    parameters.vendor_specific_1g = 0;
    parameters.vendor_specific_10g = 0;
    parameters.oui_1g = 0x0AC4D2;
    parameters.oui_10g = 0x0AC4D2;
    parameters.uart_baud_rate = 9;
    parameters.llid_assignment = LLID_ASSIGNMENT_ALL;
    parameters.sled_strobe = 0;
    parameters.sled_mute = 0;
    parameters.i2c_speed = I2C_SPEED_STANDARD;
    return parameters;
}

// A scenario may hold codes that no command sets, to see how they are shown.
void read_olt_parameters(ScenarioReader& reader, OLT_update_parameters* parameters)
{
    reader.number("min_rtt", 0, MIN_RTT_LIMIT, &parameters->min_rtt);
    reader.number("max_rtt", 0, MAX_RTT_LIMIT, &parameters->max_rtt);
    reader.flag("grant_filtering", &parameters->grant_filtering);
    reader.number("vendor_specific_1g", 0, std::numeric_limits<int32_t>::max(), &parameters->vendor_specific_1g);
    reader.number("vendor_specific_10g", 0, std::numeric_limits<int32_t>::max(), &parameters->vendor_specific_10g);
    reader.number("oui_1g", 0, OUI_LIMIT, &parameters->oui_1g);
    reader.number("oui_10g", 0, OUI_LIMIT, &parameters->oui_10g);
    reader.number("uart_baud_rate", 0, 255, &parameters->uart_baud_rate);
    reader.number("llid_assignment", 0, 255, &parameters->llid_assignment);
    reader.flag("sled_strobe", &parameters->sled_strobe);
    reader.flag("sled_mute", &parameters->sled_mute);
    reader.number("i2c_speed", 0, 255, &parameters->i2c_speed);
    if (parameters->min_rtt > parameters->max_rtt) reader.refuse("min_rtt", "at most max_rtt");
}

} // namespace sdk_sim

using namespace sdk_sim;

int32_t Olt_exists(int16_t olt_id)
{
    return ask(olt_exists, in(olt_id), out(),
               [&](Network& network) { return present_olt(network, olt_id) != nullptr; });
}

int16_t NEP_add_olt(int16_t olt_id, const uint8_t mac[6], const OLT_firmware_source* firmware)
{
    return without_model(add_olt, in(olt_id, as_mac(mac), FirmwareValue{firmware}), out(), [&]() -> int16_t {
        if (!is_firmware(*firmware)) return PARAMETER_ERROR;
        const ModelLock model;
        return add(*model, olt_id, mac);
    });
}

int16_t NEP_reset_olt(int16_t olt_id)
{
    return on_olt(reset_olt, olt_id, in(olt_id), out(), [&](Olt& olt) {
        olt.configuration = olt.initial_configuration;
        end_olt(olt);
        return SUCCESS;
    });
}

int16_t NEP_olt_host_recovery(int16_t olt_id, int32_t* state, uint32_t* elapsed, uint16_t* onus, uint16_t* llids,
                              uint8_t report[OLT_RECOVERY_BUFFER_SIZE])
{
    const auto report_text = as_text(reinterpret_cast<char*>(report), OLT_RECOVERY_BUFFER_SIZE);
    return on_olt(olt_host_recovery, olt_id, in(olt_id), out(state, elapsed, onus, llids, report_text), [&](Olt& olt) {
        const uint16_t found = olt.recovery_fails ? 0 : count_registered(olt);
        *state = olt.recovery_fails ? RECOVERY_FAILED : RECOVERY_DONE;
        *elapsed = RECOVERY_TIME_MS + RECOVERY_TIME_PER_ONU_MS * found;
        *onus = found;
        *llids = found; // one link an ONU
        write_report(recovery_report(olt, *elapsed), report);
        return SUCCESS;
    });
}

int16_t NEP_update_olt_parameters(int16_t olt_id, const OLT_update_parameters* parameters)
{
    return on_olt(update_olt_parameters, olt_id, in(olt_id, parameters), out(),
                  [&](Olt& olt) { return update(*parameters, &olt.configuration.parameters); });
}

int16_t NEP_get_olt_parameters(int16_t olt_id, OLT_parameters* parameters)
{
    return on_olt(get_olt_parameters, olt_id, in(olt_id), out(parameters), [&](Olt& olt) {
        parameters->settings = olt.configuration.parameters;
        std::copy(olt.mac.begin(), olt.mac.end(), parameters->mac);
        return SUCCESS;
    });
}

int16_t NEP_get_olt_versions(int16_t olt_id, OLT_device_versions* device, OLT_version* firmware, OLT_version* host)
{
    return on_olt(get_olt_versions, olt_id, in(olt_id), out(device, firmware, host), [&](Olt& olt) {
        *device = {};
        olt.device.name.copy(device->device_name, sizeof(device->device_name) - 1);
        device->hardware_major = olt.device.hardware_major;
        device->hardware_minor = olt.device.hardware_minor;
        device->llids_supported = olt.device.llids_supported;
        device->system_port_mac_type = olt.device.system_port_mac_type;
        *firmware = olt.device.firmware_version;
        *host = olt.device.host_version;
        return SUCCESS;
    });
}

// A fault on it leaves the name unknown.
const char* Get_pon_mac_name(int32_t type)
{
    const char* name = pon_mac_name(type);
    const Verdict verdict = meet_faults(get_pon_mac_name);
    if (verdict.faulty && verdict.code != 0) name = pon_mac_name(-1);
    if (journal_wanted()) {
        std::string line = std::string(get_pon_mac_name.name) + '(' + std::to_string(type) + ") = ";
        append_quoted(&line, name);
        journal(std::move(line));
    }
    return name;
}
