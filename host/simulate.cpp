// SPDX-License-Identifier: Apache-2.0
// Faults, events and power failures of the simulated network, as commands.
#include "host/simulate.h"

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

#include <epon/cli.h>

#include "host/engine/engine_host.h"
#include "host/sdk_sim/sdk_sim.h"

namespace {

void print_line(vty* session, const std::string& line)
{
    RBX_vty_out(session, "%s%s", line.c_str(), VTY_NEWLINE(session));
}

int refuse(vty* session, const std::string& reason)
{
    print_line(session, "% " + reason);
    return -1;
}

// The engine admits decimal numbers of the command's range only.
template <class Number>
Number number(std::string_view word)
{
    Number value{};
    std::from_chars(word.data(), word.data() + word.size(), value);
    return value;
}

// --- Faults ------------------------------------------------------------------------------------------------------

// operation, code, count and, in the longer form, delay
int simulate_fault(cmd_element*, vty* session, int argc, char** argv)
{
    sdk_sim::Fault fault;
    fault.operation = argv[0];
    fault.code = number<std::int16_t>(argv[1]);
    fault.count = number<std::uint32_t>(argv[2]);
    if (argc == 4) fault.delay_ms = number<std::uint32_t>(argv[3]);
    if (sdk_sim::inject(fault)) return 0;
    return refuse(session, "There is no operation \"" + fault.operation + "\"; see \"show simulate operations\"");
}

int no_simulate_faults(cmd_element*, vty*, int, char**)
{
    sdk_sim::clear_faults();
    return 0;
}

int show_simulate_faults(cmd_element*, vty* session, int, char**)
{
    const std::vector<sdk_sim::Fault> faults = sdk_sim::faults();
    if (faults.empty()) print_line(session, "No faults are waiting.");
    for (const sdk_sim::Fault& fault : faults) {
        std::string line = fault.operation + ": code " + std::to_string(fault.code) + ", count " +
                           std::to_string(fault.count) + ", delay " + std::to_string(fault.delay_ms) + " ms";
        if (fault.skip != 0) line += ", after " + std::to_string(fault.skip) + " calls that pass";
        if (fault.after) line += ", the call is carried out";
        print_line(session, line);
    }
    return 0;
}

int show_simulate_operations(cmd_element*, vty* session, int, char**)
{
    for (const std::string& operation : sdk_sim::operations())
        print_line(session, operation);
    return 0;
}

// --- Events ------------------------------------------------------------------------------------------------------

// kind, OLT and, in the longer form, the values
int simulate_event(cmd_element*, vty* session, int argc, char** argv)
{
    for (const sdk_sim::EventDescription& event : sdk_sim::event_descriptions()) {
        if (event.name != argv[0]) continue;
        std::string error;
        const auto olt_id = number<std::int16_t>(argv[1]);
        return sdk_sim::raise_event(event.kind, olt_id, argc == 3 ? argv[2] : "", &error) ? 0 : refuse(session, error);
    }
    return refuse(session, std::string("There is no event \"") + argv[0] + "\"");
}

int show_simulate_events(cmd_element*, vty* session, int, char**)
{
    for (const sdk_sim::EventDescription& event : sdk_sim::event_descriptions()) {
        print_line(session, event.name);
        for (const sdk_sim::EventField& field : event.fields)
            print_line(session, "  " + field.name + ": " + field.meaning);
    }
    return 0;
}

// --- Links -------------------------------------------------------------------------------------------------------

// OLT, in the form for one
int show_simulate_links(cmd_element*, vty* session, int argc, char** argv)
{
    constexpr char FORMAT[] = "%-4s%-5s%-18s%-13s%-8s%s%s";
    RBX_vty_out(session, FORMAT, "OLT", "LLID", "MAC", "Mode", "Rate", "RTT", VTY_NEWLINE(session));
    for (const sdk_sim::LinkDescription& link : sdk_sim::links()) {
        if (argc == 1 && link.olt_id != number<std::int16_t>(argv[0])) continue;
        RBX_vty_out(session, FORMAT, std::to_string(link.olt_id).c_str(), std::to_string(link.id).c_str(),
                    link.mac.c_str(), link.mode.c_str(), link.rate.c_str(), std::to_string(link.rtt).c_str(),
                    VTY_NEWLINE(session));
    }
    return 0;
}

// --- OLTs --------------------------------------------------------------------------------------------------------

int simulate_olt(cmd_element*, vty* session, int, char** argv)
{
    const auto olt_id = number<std::int16_t>(argv[0]);
    if (argv[1] == std::string_view("remove"))
        return sdk_sim::remove_olt(olt_id) ? 0 : refuse(session, "OLT " + std::to_string(olt_id) + " is not present");
    if (sdk_sim::return_olt(olt_id)) return 0;
    return refuse(session, "OLT " + std::to_string(olt_id) + " is present already, or not part of this network");
}

// --- ONUs --------------------------------------------------------------------------------------------------------

int simulate_loop(cmd_element*, vty* session, int, char** argv)
{
    const auto olt_id = number<std::int16_t>(argv[0]);
    const auto onu_id = number<std::int16_t>(argv[1]);
    const auto port = number<std::uint8_t>(argv[2]);
    const bool makes = argv[3] == std::string_view("make");
    if (makes ? sdk_sim::make_loop(olt_id, onu_id, port) : sdk_sim::remove_loop(olt_id, onu_id, port)) return 0;
    return refuse(session, makes ? "There is no such ONU, or the port has a loop already"
                                 : "There is no such ONU, or the port has no loop");
}

// --- Commands ----------------------------------------------------------------------------------------------------

constexpr cmd_element command(const char* grammar, cmd_handler* handler, const char* help)
{
    return {grammar, handler, help, 0, nullptr, 0, nullptr, nullptr, 0};
}

#define SIMULATE_HELP "Drive the simulated network\n"
#define FAULT_HELP                                                                                                     \
    SIMULATE_HELP                                                                                                      \
    "Make an operation of the SDK fail\n"                                                                              \
    "Name of the operation, as \"show simulate operations\" lists it\n"                                                \
    "What the operation returns\n"                                                                                     \
    "Return code, -32768-32767; it returns 0 without doing its work, too\n"                                            \
    "For how many calls\n"                                                                                             \
    "Number of calls, 1-1000000\n"
#define EVENT_KINDS                                                                                                    \
    "(ethernet-frame-received|onu-registered|onu-deregistered|onu-registration-refused|alarm|link-test-completed|"     \
    "loopback-changed|self-test-completed|onu-authorization-changed|oam-frame-received|oam-link-changed|"              \
    "oam-errors-reported|encryption-changed|encryption-key-updated|olt-state-changed|dba-state-changed|"               \
    "dba-sla-refused|cni-link-changed|pon-signal-changed|optical-module-changed|duplicate-mac-address|mac-migrated|"   \
    "address-table-full|multicast-group-changed|protection-switched|xaui-switched-over|reference-clock-changed|"       \
    "time-of-day-changed|firmware-download-progress|rogue-onu-detected|mka-state-changed|mka-key-installed|"           \
    "packet-number-threshold|gpio-changed|uart-data-received|otdr-measured|flood-detected|received-power-measured|"    \
    "remote-rstp-loop|ctc-encryption|ctc-discovery|ctc-update-error|ctc-update-request|ctc-notification)"
#define EVENT_HELP                                                                                                     \
    SIMULATE_HELP                                                                                                      \
    "Raise an event of the SDK; the network itself stays as it is\n"                                                   \
    "Kind of the event; \"show simulate events\" tells its fields\n"                                                   \
    "The OLT that the event comes from\n"                                                                              \
    "Index of the OLT, 0-15\n"

cmd_element commands[] = {
    command("simulate fault OPERATION code <-32768-32767> count <1-1000000>", simulate_fault, FAULT_HELP),
    command("simulate fault OPERATION code <-32768-32767> count <1-1000000> delay <0-60000>", simulate_fault,
            FAULT_HELP "Time that each of these calls takes\n"
                       "Milliseconds, 0-60000; the console waits for it\n"),
    command("no simulate faults", no_simulate_faults,
            "Take something back\n" SIMULATE_HELP "Faults that are waiting\n"),
    command("show simulate faults", show_simulate_faults,
            "Show something\n" SIMULATE_HELP "Faults that are waiting, with what is left of their counts\n"),
    command("show simulate operations", show_simulate_operations,
            "Show something\n" SIMULATE_HELP "Names of the SDK's operations\n"),
    command("simulate event " EVENT_KINDS " olt <0-15>", simulate_event, EVENT_HELP),
    command("simulate event " EVENT_KINDS " olt <0-15> values VALUES", simulate_event,
            EVENT_HELP "What the event tells\n"
                       "As field=value,field=value without blanks; a field that is left out is 0\n"),
    command("show simulate events", show_simulate_events,
            "Show something\n" SIMULATE_HELP "Kinds of events and their fields\n"),
    command("show simulate links", show_simulate_links,
            "Show something\n" SIMULATE_HELP "Every link of the OLTs that are present, one a line\n"),
    command("show simulate links olt <0-15>", show_simulate_links,
            "Show something\n" SIMULATE_HELP "Every link of the OLTs that are present, one a line\n"
            "Of one OLT\n"
            "Index of the OLT, 0-15\n"),
    command("simulate olt <0-15> (remove|return)", simulate_olt,
            SIMULATE_HELP "Take an OLT away, or bring it back\n"
                          "Index of the OLT, 0-15\n"
                          "remove: as a power failure would; return: power is back, settings are as they were\n"),
    command("simulate loop olt <0-15> onu <0-254> port <0-255> (make|remove)", simulate_loop,
            SIMULATE_HELP "A cable that connects the users of an ONU in a loop\n"
                          "The OLT of the ONU\n"
                          "Index of the OLT, 0-15\n"
                          "The ONU\n"
                          "Index of the ONU, 0-254\n"
                          "User port of the ONU\n"
                          "Number of the port, 0-255\n"
                          "make: the cable is plugged in; remove: it is taken away\n"),
};

} // namespace

void install_simulate_commands()
{
    for (const int node : {VIEW_NODE, ENABLE_NODE, CONFIG_NODE, OLT_NODE, ONU_NODE})
        for (cmd_element& element : commands) {
            const bool only_shows = std::string_view(element.string).starts_with("show ");
            if (only_shows || node == ENABLE_NODE || node == CONFIG_NODE) engine::install_host_element(node, &element);
        }
}
