// SPDX-License-Identifier: Apache-2.0
// Scenarios: networks as TOML. scenarios/demo.toml shows every key.
#include <cerrno>
#include <cstring>
#include <fstream>
#include <memory>
#include <sstream>

#include "host/sdk_sim/ctc_discovery.h"
#include "host/sdk_sim/ctc_stack.h"
#include "host/sdk_sim/events.h"
#include "host/sdk_sim/life.h"
#include "host/sdk_sim/log.h"
#include "host/sdk_sim/olt.h"
#include "host/sdk_sim/scenario_reader.h"
#include "host/sdk_sim/sdk_sim.h"

namespace sdk_sim {

namespace {

constexpr std::size_t NETWORK_NAME_LENGTH = 32;
constexpr std::size_t DEVICE_NAME_LENGTH = sizeof(OLT_device_versions::device_name) - 1;
constexpr std::size_t ONU_TEXT_LENGTH = 255;
constexpr int MAC_TYPE_LIMIT = 255;

constexpr ScenarioWord mode_words[] = {{"unregistered", ONU_MODE_UNREGISTERED},
                                       {"registered", ONU_MODE_REGISTERED},
                                       {"discovered", ONU_MODE_DISCOVERED},
                                       {"unauthorized", ONU_MODE_REGISTERED_UNAUTHORIZED}};
constexpr ScenarioWord rate_words[] = {{"1g", static_cast<int>(OnuRate::Rate1G)},
                                       {"10g/1g", static_cast<int>(OnuRate::Rate10G1G)},
                                       {"10g", static_cast<int>(OnuRate::Rate10G)}};
constexpr ScenarioWord answer_words[] = {{"answers", static_cast<int>(OamAnswer::Answers)},
                                         {"none", static_cast<int>(OamAnswer::None)},
                                         {"silent", static_cast<int>(OamAnswer::Silent)}};

// The address `steps` after another.
Mac add_to_mac(const Mac& mac, std::uint64_t steps)
{
    std::uint64_t number = 0;
    for (const std::uint8_t octet : mac)
        number = number << 8 | octet;
    number += steps;
    Mac sum{};
    for (std::size_t i = sum.size(); i-- > 0; number >>= 8)
        sum[i] = static_cast<std::uint8_t>(number);
    return sum;
}

// "id = 3" for one device, "first = 0" and "count = 255" for several.
struct IndexRange {
    int first = 0;
    int count = 1;
};

IndexRange read_range(ScenarioReader& reader, int limit)
{
    IndexRange range;
    if (reader.has("id") == reader.has("first")) {
        reader.refuse("id", "a number, or first and count");
        return range;
    }
    reader.number(reader.has("id") ? "id" : "first", 0, limit - 1, &range.first);
    if (reader.has("first")) reader.number("count", 1, limit - range.first, &range.count);
    return range;
}

template <class Record>
void read_table(ScenarioReader& reader, std::string_view key, void (*read)(ScenarioReader&, Record*), Record* record)
{
    for (ScenarioReader& table : reader.tables(key)) {
        read(table, record);
        table.finish();
    }
}

Onu read_onu(ScenarioReader& reader)
{
    Onu onu;
    onu.rtt = 1000;
    onu.home_mode = ONU_MODE_REGISTERED;
    reader.mac("mac", &onu.mac);
    if (!reader.has("mac")) reader.refuse("mac", "a MAC address");
    reader.word("rate", rate_words, &onu.rate);
    reader.word("mode", mode_words, &onu.home_mode);
    reader.flag("static", &onu.is_static);
    reader.flag("warned", &onu.is_warned);
    reader.number("rtt", 0, 65534, &onu.rtt);
    reader.number("frame_error_rate", 0, 1000000, &onu.frame_error_rate);
    reader.word("extended_oam", answer_words, &onu.extended_oam);
    read_ctc_device(reader, &onu.ctc_device);
    reader.word("remote_management", answer_words, &onu.remote_management);
    read_table(reader, "device", read_onu_device, &onu.device);
    read_table(reader, "uni_partner", read_uni_partner, &onu.uni_partner);
    read_table(reader, "reports", read_reports, &onu.configuration.frame_processing);
    reader.text("name", ONU_TEXT_LENGTH, &onu.name);
    reader.text("serial_number", ONU_TEXT_LENGTH, &onu.serial_number);
    onu.identity = default_identity(onu);
    onu.capabilities = default_capabilities(onu);
    read_table(reader, "identity", read_identity, &onu.identity);
    read_table(reader, "capabilities", read_capabilities, &onu.capabilities);
    reader.text("loid", CTC_LOID_SIZE - 1, &onu.loid);
    reader.text("loid_password", CTC_LOID_PASSWORD_SIZE - 1, &onu.loid_password);
    onu.initial_configuration = onu.configuration;
    return onu;
}

void read_onus(ScenarioReader& reader, Olt* olt)
{
    for (ScenarioReader& onu_reader : reader.tables("onu")) {
        const IndexRange range = read_range(onu_reader, ONU_INDEX_LIMIT);
        const Onu onu = read_onu(onu_reader);
        for (int i = 0; i < range.count; ++i) {
            Onu copy = onu;
            copy.id = static_cast<std::int16_t>(range.first + i);
            copy.mac = add_to_mac(onu.mac, static_cast<std::uint64_t>(i));
            const std::int16_t id = copy.id;
            if (!olt->onus.emplace(id, std::move(copy)).second)
                onu_reader.refuse(onu_reader.has("id") ? "id" : "first",
                                  "an ONU that is not described twice, and " + std::to_string(id) + " is");
        }
        onu_reader.finish();
    }
}

void check_addresses(ScenarioReader& reader, const Olt& olt)
{
    std::map<Mac, std::int16_t> owners;
    for (const auto& [id, onu] : olt.onus) {
        const auto [owner, is_new] = owners.emplace(onu.mac, id);
        if (!is_new)
            reader.refuse("onu", "an address of its own for ONU " + std::to_string(id) + ", and ONU " +
                                     std::to_string(owner->second) + " has the same");
    }
}

void read_device(ScenarioReader& reader, OltDevice* device)
{
    reader.text("name", DEVICE_NAME_LENGTH, &device->name);
    reader.number("hardware_major", 0, 255, &device->hardware_major);
    reader.number("hardware_minor", 0, 255, &device->hardware_minor);
    reader.number("llids_supported", 0, 65535, &device->llids_supported);
    reader.number("system_port_mac_type", 0, MAC_TYPE_LIMIT, &device->system_port_mac_type);
    reader.version("firmware_version", &device->firmware_version);
    reader.version("host_version", &device->host_version);
}

void read_firmware(ScenarioReader& reader, FirmwareConsole* console)
{
    reader.fixed_point("temperature", 1, -600, 2000, &console->temperature);
    reader.registers("registers", &console->registers);
    reader.texts("log", &console->log);
}

Olt read_olt(ScenarioReader& reader)
{
    Olt olt;
    olt.is_known = olt.is_powered = olt.is_present = true;
    olt.device = {"EPON OLT", 1, 0, ONU_INDEX_LIMIT, 0, {{1, 0, 0, 0}}, {{1, 0, 0, 0}}};
    olt.firmware_console.temperature = 450;
    olt.configuration.parameters = default_olt_parameters();
    reader.mac("mac", &olt.mac);
    if (!reader.has("mac")) reader.refuse("mac", "a MAC address");
    reader.flag("present", &olt.is_present);
    reader.flag("recovery_fails", &olt.recovery_fails);
    read_table(reader, "device", read_device, &olt.device);
    read_table(reader, "firmware", read_firmware, &olt.firmware_console);
    read_table(reader, "parameters", read_olt_parameters, &olt.configuration.parameters);
    read_table(reader, "pon_modules", read_pon_modules, &olt.configuration.pon_transmission);
    read_table(reader, "settings", read_olt_settings, &olt.configuration.settings);
    read_table(reader, "xaui_redundancy", read_xaui_redundancy, &olt.configuration.xaui_redundancy);
    read_table(reader, "dba", read_dba_control, &olt.configuration.dba_control);
    olt.initial_configuration = olt.configuration;
    read_onus(reader, &olt);
    check_addresses(reader, olt);
    for (auto& [id, onu] : olt.onus)
        if (olt.is_present) onu.mode = onu.home_mode;
    return olt;
}

void read_olts(ScenarioReader& reader, Network* network)
{
    for (ScenarioReader& olt_reader : reader.tables("olt")) {
        const IndexRange range = read_range(olt_reader, OLT_INDEX_LIMIT);
        const Olt olt = read_olt(olt_reader);
        for (int i = 0; i < range.count; ++i) {
            Olt& place = network->olts[range.first + i];
            if (place.is_known)
                olt_reader.refuse(olt_reader.has("id") ? "id" : "first",
                                  "an OLT that is not described twice, and " + std::to_string(place.id) + " is");
            const std::int16_t id = place.id;
            place = olt;
            place.id = id;
            // Addresses of OLTs follow each other; those of their ONUs are a block of 256 apart.
            place.mac = add_to_mac(olt.mac, static_cast<std::uint64_t>(i));
            for (auto& [onu_id, onu] : place.onus)
                onu.mac = add_to_mac(onu.mac, static_cast<std::uint64_t>(i) * 256);
        }
        olt_reader.finish();
    }
}

void read_clock(ScenarioReader& reader, Network* network)
{
    reader.real("speed", 0, 1000, &network->speed);
}

void read_life(ScenarioReader& reader, Life* life)
{
    reader.number("seed", 0, INT64_MAX, &life->seed);
    reader.seconds("leave_interval", &life->leave_interval);
    reader.seconds("absence", &life->absence);
    reader.seconds("alarm_interval", &life->alarm_interval);
    reader.seconds("alarm_duration", &life->alarm_duration);
    reader.seconds("start_time", &life->start_time);
    reader.seconds("registration_time", &life->registration_time);
    reader.seconds("registration_step", &life->registration_step);
    reader.seconds("return_time", &life->return_time);
    reader.seconds("restart_time", &life->restart_time);
}

} // namespace

bool load_scenario_text(std::string_view toml, std::string_view name, std::string* error)
{
    ScenarioErrors errors{std::string(name), {}};
    auto network = std::make_unique<Network>();
    if (const std::shared_ptr<const void> root = parse_scenario(toml, &errors)) {
        ScenarioReader reader(root.get(), &errors);
        reader.text("name", NETWORK_NAME_LENGTH, &network->name);
        read_table(reader, "clock", read_clock, network.get());
        read_table(reader, "life", read_life, &network->life);
        read_table(reader, "ctc_stack", read_ctc_stack, &network->ctc_stack);
        network->initial_ctc_stack = network->ctc_stack;
        read_olts(reader, network.get());
        reader.finish();
    }
    if (!errors.first.empty()) {
        *error = errors.first;
        return false;
    }
    begin_life(*network);
    replace_network(std::move(*network));
    return true;
}

bool load_scenario_file(const std::string& path, std::string* error)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    if (!file || !(content << file.rdbuf())) {
        *error = path + ": " + std::strerror(errno);
        return false;
    }
    return load_scenario_text(content.str(), path, error);
}

void reset()
{
    stop();
    replace_network(Network());
    reset_events();
    clear_faults();
    reset_log();
}

} // namespace sdk_sim
