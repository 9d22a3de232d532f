// SPDX-License-Identifier: Apache-2.0
// What the simulated SDK offers to the host process and the tests, beside the SDK's own operations: the network it
// models, its journal, faults and events. Any thread, unless noted.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace sdk_sim {

// --- The network -------------------------------------------------------------------------------------------------

// Replaces the whole network by a scenario (TOML). False with one line in *error that names the file, the line and what
// was expected there; the network is then unchanged.
bool load_scenario_file(const std::string& path, std::string* error);
bool load_scenario_text(std::string_view toml, std::string_view name, std::string* error);
// The embedded network that a host without a scenario starts with.
std::string_view demo_scenario();
// Name of the network: the "%s" of the console's prompts.
std::string network_name();
// Forgets network, faults, journal, log and event handlers and stops the event thread: a fresh process. For tests; not
// on the event thread.
void reset();

// Starts and stops the event thread and the network's clock. Before start, events are kept; stop delivers nothing more
// and joins the thread (so it is not called on it).
void start();
void stop();
// Returns when every event raised so far has been delivered; at once on the event thread and while it does not run.
void drain_events();
// Moves the network's clock forward, and does what is due until then. For tests; scenarios with "clock.speed = 0" live
// by it alone.
void advance_clock(std::uint64_t milliseconds);

// --- The SDK log and the journal ---------------------------------------------------------------------------------

// Where the SDK log goes, one line per entry: a file that is appended to, or "-" for stderr. Empty: nowhere. The
// journal goes there too. False with a line in *error when the file cannot be opened.
bool set_log(const std::string& path, std::string* error);
// Every call since the last one of this function, as "NEP_set_mpcp_timeout(0, 300) = 0". Kept only while recording.
void record_journal(bool on);
std::vector<std::string> take_journal();
// Entries of NEPLOG_print since the last call, as "topic|module|olt|onu|text", the text with its line end. Kept only
// while recording.
std::vector<std::string> take_log();

// --- Faults ------------------------------------------------------------------------------------------------------

struct Fault {
    std::string operation;      // "NEP_reset_olt"
    std::int16_t code = -1;     // what it returns, without touching the model
    std::uint32_t count = 1;    // for how many calls
    std::uint32_t skip = 0;     // calls that pass before
    std::uint32_t delay_ms = 0; // time each faulty call takes
    bool after = false;         // carry out the call first, then return the code
};
// False when no operation has that name. Faults of the same operation wait for each other: the next one begins (skip
// included) when the one before has had its count. A call that is not carried out writes zeros through its pointers.
bool inject(const Fault& fault);
void clear_faults();
// The faults that still wait, with what is left of their skip and count.
std::vector<Fault> faults();
std::vector<std::string> operations();

// --- Events ------------------------------------------------------------------------------------------------------

struct EventField {
    std::string name;
    std::string meaning; // with unit and range
};
struct EventDescription {
    int kind;
    std::string name; // "onu-registered"
    std::vector<EventField> fields;
};
const std::vector<EventDescription>& event_descriptions();
// Raises an event. values is "field=value,field=value"; fields that are not named are 0. False with a line in *error.
bool raise_event(int kind, std::int16_t olt_id, std::string_view values, std::string* error);

// Receives the output of the OLT firmwares' own consoles, one line a call, on the event thread. Null: nobody does. The
// former receiver is not called any more once this returns.
void set_firmware_console(void (*print)(const char* text));

// --- The OLTs and links of the network ----------------------------------------------------------------------------

struct OltDescription {
    std::int16_t id;
    std::string mac;        // "02-4e-50-40-00-00"
    std::size_t links;      // that it knows
    std::size_t registered; // of these
};
// The OLTs present, by index.
std::vector<OltDescription> olts();

struct LinkDescription {
    std::int16_t olt_id, id;
    std::string mac;   // "02-4e-50-50-00-00"
    std::string mode;  // "registered"
    std::string rate;  // downstream and upstream: "10g/1g"
    std::uint32_t rtt; // time quanta of 16 ns
};
// Every link that an OLT present knows, by OLT and index.
std::vector<LinkDescription> links();

// --- Driving the network -----------------------------------------------------------------------------------------

// Takes an OLT away as a power failure would, or brings it back as it was. False when it is not known or already so.
bool remove_olt(std::int16_t olt_id);
bool return_olt(std::int16_t olt_id);

// Makes a loop on a user port of an ONU, as a misplaced cable would, or takes the cable away. False when there is no
// such ONU, or it is so already.
bool make_loop(std::int16_t olt_id, std::int16_t onu_id, std::uint8_t port);
bool remove_loop(std::int16_t olt_id, std::int16_t onu_id, std::uint8_t port);

} // namespace sdk_sim
