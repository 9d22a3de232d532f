// SPDX-License-Identifier: Apache-2.0
// Commands that set one value of an OLT or of a link, and commands that show it again.
#include <string>
#include <vector>

#include "console_fixture.h"
#include "olt/mac_address_modes.h"
#include "olt/modes.h"
#include "olt/timeouts.h"

namespace {

using Calls = std::vector<std::string>;

constexpr const char* NOT_EXIST = "Command return error.\r\nOLT not exist (error code : -1003)\r\n";
constexpr const char* NO_ONU = "Command return error.\r\nONU not available (error code : -1007)\r\n";
constexpr const char* PARAMETER_ERROR = "Command return error.\r\nparameter error (error code : -4)\r\n";
constexpr const char* TIME_OUT = "Command return error.\r\ntime out (error code : -2)\r\n";

// A command in one node. "#" is the place of the OLT, "$" that of the value.
struct Line {
    int node;
    const char* text;
};

struct Value {
    const char* typed;
    int number;
    const char* shown;
};

// The forms of a setting, in every node.
struct Setting {
    const char* set_operation;
    const char* get_operation;
    const char* label;
    std::vector<Line> sets;
    std::vector<Line> shows;
    std::vector<Value> values; // the first one is not the default
};

const std::vector<Setting>& settings()
{
    static const std::vector<Setting> table = {
        {"NEP_set_ref_clock",
         "NEP_get_ref_clock",
         "ref clock",
         {{CONFIG_NODE, "set olt # ref-clock $"}, {OLT_NODE, "set olt ref-clock $"}},
         {{CONFIG_NODE, "show olt # ref-clock"}, {OLT_NODE, "show olt ref-clock"}},
         {{"125-single-ended", 0, "125-single-ended"},
          {"161-13-differential", 1, "161-13-differential"},
          {"125-differential", 2, "125-differential"},
          {"161-13-single-ended", 3, "161-13-single-ended"}}},
        {"NEP_set_olt_flavor_edk_type",
         "NEP_get_olt_flavor_edk_type",
         "olt flavor edk",
         {{CONFIG_NODE, "set olt-flavor-edk olt # flavor $"}},
         {{CONFIG_NODE, "show olt-flavor-edk olt #"}},
         {{"edk-type-1", 0, "edk-type-1"},
          {"edk-type-2", 1, "edk-type-2"},
          {"edk-type-3", 2, "edk-type-3"},
          {"default-user-edk", 3, "default-user-edk"}}},
        {"NEP_set_olt_interface_mtu",
         "NEP_get_olt_interface_mtu",
         "interface mtu",
         {{CONFIG_NODE, "set olt # interface-mtu $"}},
         {{CONFIG_NODE, "show olt # interface-mtu"}},
         {{"64", 64, "64"}, {"16383", 16383, "16383"}, {"0x600", 1536, "1536"}}},
        {"NEP_set_olt_ne_mode",
         "NEP_get_olt_ne_mode",
         "ne mode",
         {{CONFIG_NODE, "set ne-mode olt # mode $"}},
         {{CONFIG_NODE, "show ne-mode olt #"}},
         {{"mode1", 1, "mode1"},
          {"default", 2, "default"},
          {"cascading", 3, "cascading"},
          {"1", 1, "mode1"},
          {"2", 2, "default"},
          {"3", 3, "cascading"},
          {"4", 4, "4"}}},
        {"NEP_set_enable_rules_for_dereg_llids",
         "NEP_get_enable_rules_for_dereg_llids",
         "enable rules for dereg llids",
         {{CONFIG_NODE, "$ enable-rules-for-dereg-llids olt #"}, {OLT_NODE, "$ enable-rules-for-dereg-llids olt #"}},
         {{VIEW_NODE, "show enable-rules-for-dereg-llids olt #"},
          {ENABLE_NODE, "show enable-rules-for-dereg-llids olt #"},
          {CONFIG_NODE, "show enable-rules-for-dereg-llids olt #"},
          {OLT_NODE, "show enable-rules-for-dereg-llids olt #"}},
         {{"set", 1, "enable"}, {"no", 0, "disable"}}},
        {"NEP_set_nack_control",
         "NEP_get_nack_control",
         "nack control",
         {{CONFIG_NODE, "set nack-control olt # state $"}, {OLT_NODE, "set nack-control state $"}},
         {{CONFIG_NODE, "show nack-control olt #"}, {OLT_NODE, "show nack-control"}},
         {{"disable", 0, "disable"}, {"enable", 1, "enable"}}},
        {"NEP_set_dba_allocation_overhead_mode",
         "NEP_get_dba_allocation_overhead_mode",
         "dba allocation overhead mode",
         {{CONFIG_NODE, "set dba-allocation-overhead olt # mode $"}, {OLT_NODE, "set dba-allocation-overhead mode $"}},
         {{VIEW_NODE, "show dba-allocation-overhead-mode olt #"},
          {ENABLE_NODE, "show dba-allocation-overhead-mode olt #"},
          {CONFIG_NODE, "show dba-allocation-overhead-mode olt #"},
          {OLT_NODE, "show dba-allocation-overhead-mode"}},
         {{"legacy", 1, "legacy"}, {"auto", 0, "auto"}}},
        {"NEP_set_duplicate_mac_handle_mode",
         "NEP_get_duplicate_mac_handle_mode",
         "duplicate mac handle mode",
         {{CONFIG_NODE, "set duplicate-mac-handle-mode olt # mode $"},
          {OLT_NODE, "set duplicate-mac-handle-mode mode $"}},
         {{VIEW_NODE, "show duplicate-mac-handle-mode olt #"},
          {ENABLE_NODE, "show duplicate-mac-handle-mode olt #"},
          {CONFIG_NODE, "show duplicate-mac-handle-mode olt #"},
          {OLT_NODE, "show duplicate-mac-handle-mode"}},
         {{"ignoring", 1, "ignoring"}, {"deregister", 2, "deregister"}, {"standard", 0, "standard"}}},
        {"NEP_set_mac_migration_event_report_mode",
         "NEP_get_mac_migration_event_report_mode",
         "mac migration event report mode",
         {{CONFIG_NODE, "set mac-migration-event-report-mode olt # mode $"},
          {OLT_NODE, "set mac-migration-event-report-mode mode $"}},
         {{VIEW_NODE, "show mac-migration-event-report-mode olt #"},
          {ENABLE_NODE, "show mac-migration-event-report-mode olt #"},
          {CONFIG_NODE, "show mac-migration-event-report-mode olt #"},
          {OLT_NODE, "show mac-migration-event-report-mode"}},
         {{"none", 0, "none"}, {"all", 1, "all"}, {"limited", 2, "limited"}}},
        {"NEP_set_olt_anti_spoofing_mode",
         "NEP_get_olt_anti_spoofing_mode",
         "anti spoofing mode",
         {{CONFIG_NODE, "set anti-spoofing-mode olt # mode $"}},
         {{CONFIG_NODE, "show anti-spoofing-mode olt #"}},
         {{"range", 1, "range"}, {"single", 0, "single"}}},
        {"NEP_set_mpcp_timeout",
         "NEP_get_mpcp_timeout",
         "mpcp timeout",
         {{CONFIG_NODE, "set mpcp-timeout olt # timeout $"}},
         {{CONFIG_NODE, "show mpcp-timeout olt #"}},
         {{"50", 50, "50"}, {"60000", 60000, "60000"}, {"0x12c", 300, "300"}}},
        {"NEP_set_standard_oam_timeout",
         "NEP_get_standard_oam_timeout",
         "oam timeout",
         {{CONFIG_NODE, "set oam-timeout olt # timeout $"}},
         {{CONFIG_NODE, "show oam-timeout olt #"}},
         {{"1000", 1000, "1000"}, {"60000", 60000, "60000"}, {"0x1388", 5000, "5000"}}},
    };
    return table;
}

std::string line_of(const Line& line, int olt_id, const char* value = "")
{
    std::string text = line.text;
    if (const auto at = text.find('#'); at != std::string::npos) text.replace(at, 1, std::to_string(olt_id));
    if (const auto at = text.find('$'); at != std::string::npos) text.replace(at, 1, value);
    return text;
}

// Global forms are typed in the context of another OLT, where there is one.
int16_t context_of(const Line& line, int16_t olt_id)
{
    return std::string(line.text).find('#') == std::string::npos ? olt_id : 9;
}

class OltSettings : public Console {};

TEST_F(OltSettings, WhatWasSetIsShown)
{
    for (const Setting& setting : settings()) {
        for (const Line& set : setting.sets) {
            for (const Value& value : setting.values) {
                const std::string line = line_of(set, 0, value.typed);
                enter(set.node, context_of(set, 0));
                EXPECT_EQ(type(line), "") << line;
                EXPECT_EQ(result, 0) << line;
                EXPECT_EQ(journal(),
                          Calls{std::string(setting.set_operation) + "(0, " + std::to_string(value.number) + ") = 0"})
                    << line;
                for (const Line& show : setting.shows) {
                    enter(show.node, context_of(show, 0));
                    EXPECT_EQ(type(line_of(show, 0)),
                              std::string("OLT_id: 0 \r\n") + setting.label + ": " + value.shown + " \r\n")
                        << line;
                    EXPECT_EQ(result, 0);
                    EXPECT_EQ(journal(),
                              Calls{std::string(setting.get_operation) + "(0) = 0 -> " + std::to_string(value.number)});
                }
            }
        }
    }
}

TEST_F(OltSettings, AnAbsentOltIsReported)
{
    for (const Setting& setting : settings()) {
        for (const Line& set : setting.sets) {
            enter(set.node, context_of(set, 1));
            EXPECT_EQ(type(line_of(set, 1, setting.values[0].typed)), NOT_EXIST) << set.text;
            EXPECT_EQ(result, -1003);
        }
        for (const Line& show : setting.shows) {
            enter(show.node, context_of(show, 1));
            EXPECT_EQ(type(line_of(show, 1)), NOT_EXIST) << show.text;
            EXPECT_EQ(result, -1003);
        }
    }
}

TEST_F(OltSettings, AFailingCallIsReportedAndChangesNothing)
{
    for (const Setting& setting : settings()) {
        const Line& set = setting.sets[0];
        const Line& show = setting.shows[0];
        enter(show.node);
        const std::string before = type(line_of(show, 0));
        enter(set.node);
        inject(setting.set_operation, -2);
        EXPECT_EQ(type(line_of(set, 0, setting.values[0].typed)), TIME_OUT) << set.text;
        EXPECT_EQ(result, -2);
        enter(show.node);
        EXPECT_EQ(type(line_of(show, 0)), before) << show.text;
        inject(setting.get_operation, -5);
        EXPECT_EQ(type(line_of(show, 0)), "Command return error.\r\nhardware error (error code : -5)\r\n");
        EXPECT_EQ(result, -5);
    }
}

TEST_F(OltSettings, AResetTakesThemBack)
{
    for (const Setting& setting : settings()) {
        load(std::string(NETWORK));
        const Line& set = setting.sets[0];
        const Line& show = setting.shows[0];
        enter(show.node);
        const std::string before = type(line_of(show, 0));
        enter(set.node);
        type(line_of(set, 0, setting.values[0].typed));
        enter(show.node);
        EXPECT_NE(type(line_of(show, 0)), before) << set.text;
        enter(CONFIG_NODE);
        EXPECT_EQ(type("no olt 0"), "");
        EXPECT_EQ(type("olt 0 00-0a-c4-00-00-01 image flash"), "");
        enter(show.node);
        EXPECT_EQ(type(line_of(show, 0)), before) << set.text;
    }
}

TEST_F(OltSettings, ValuesOutsideTheTablesAreInvalid)
{
    load("[[olt]]\nid = 0\nmac = \"00-0a-c4-00-00-01\"\n[olt.settings]\n"
         "ref_clock = 4\nflavor_edk = 4\ninterface_mtu = 99999\nne_mode = 5\nrules_for_dereg_llids = 2\n"
         "nack_control = 2\ndba_allocation_overhead = 2\nduplicate_mac_handling = 3\nmac_migration_report = 3\n"
         "anti_spoofing = 2\nmpcp_timeout = 1\noam_timeout = 2147483647\n");
    for (const Setting& setting : settings()) {
        const std::string label = setting.label;
        const std::string shown = label == "interface mtu"  ? "99999"
                                  : label == "mpcp timeout" ? "1"
                                  : label == "oam timeout"  ? "2147483647"
                                                            : "Invalid value";
        enter(setting.shows[0].node);
        EXPECT_EQ(type(line_of(setting.shows[0], 0)), "OLT_id: 0 \r\n" + label + ": " + shown + " \r\n");
    }
}

TEST_F(OltSettings, NumbersThatTheSdkRefuses)
{
    const std::vector<const char*> lines = {
        "set olt 0 interface-mtu 63",           "set olt 0 interface-mtu 16384",
        "set olt 0 interface-mtu 65535",        "set mpcp-timeout olt 0 timeout 49",
        "set mpcp-timeout olt 0 timeout 60001", "set mpcp-timeout olt 0 timeout 0",
        "set oam-timeout olt 0 timeout 999",    "set oam-timeout olt 0 timeout 60001",
        "set oam-timeout olt 0 timeout 0xffff",
    };
    for (const char* line : lines) {
        EXPECT_EQ(type(line), PARAMETER_ERROR) << line;
        EXPECT_EQ(result, -4);
    }
}

// --- Refused words -----------------------------------------------------------------------------------------------

std::string misread(const std::string& name)
{
    return "Error reading " + name + " parameter for command from input, aborting\r\n";
}
std::string negative(const std::string& name)
{
    return "Error reading negative value of " + name + " parameter from input, aborting\r\n";
}
std::string out_of_range(const std::string& name, const std::string& min, const std::string& max)
{
    return "Error in range of " + name + " parameter for command from input min:" + min + " max:" + max +
           ", aborting\r\n";
}
std::string not_a_word(const std::string& name, const std::string& type)
{
    return "Error reading " + name + " parameter (of the type " + type + "), aborting\r\n";
}
std::string too_long(const std::string& name)
{
    return "Error reading " + name + " parameter, internal buffer is too short, aborting!\r\n";
}

TEST_F(OltSettings, WordsOutsideTheTables)
{
    const std::vector<std::tuple<cmd_handler*, const char*, const char*, const char*>> cases = {
        {set_olt_ref_clock, "125", "ref_clock", "ref_clock"},
        {set_olt_flavor_edk, "edk-type-4", "flavor", "olt_flavor_edk"},
        {set_olt_ne_mode, "mode2", "mode", "ne_mode"},
        {set_olt_ne_mode, "4", "mode", "ne_mode"}, // shown, but set by the other command
        {set_dba_allocation_overhead_mode, "manual", "mode", "dba_allocation_overhead_mode"},
        {set_duplicate_mac_handle_mode, "refuse", "mode", "duplicate_mac_handle_mode"},
        {set_mac_migration_event_report_mode, "some", "mode", "mac_migration_event_report_mode"},
        {set_olt_anti_spoofing_mode, "double", "mode", "anti_spoofing_mode"},
        {set_nack_control, "on", "state", "enable_disable"},
    };
    for (const auto& [handler, word, name, type_name] : cases) {
        EXPECT_EQ(call(handler, {"0", word}), not_a_word(name, type_name)) << word;
        EXPECT_EQ(result, -1);
        EXPECT_EQ(call(handler, {word}), not_a_word(name, type_name)) << word; // the short form's number of words
        EXPECT_EQ(result, -1);
    }
    for (const char* word : {"enabledisable", "0123456789"})
        EXPECT_EQ(call(set_nack_control, {word}), too_long("state"));
    EXPECT_EQ(call(set_nack_control, {""}), misread("state"));
    for (const char* word : {"enabledisable", "0123456789"})
        EXPECT_EQ(call(set_olt_standard_oam_keepalive_state, {"0", "1", word}), too_long("oam_keepalive_state"));
    EXPECT_EQ(call(set_olt_standard_oam_keepalive_state, {"0", "1", ""}), misread("oam_keepalive_state"));
    EXPECT_EQ(call(set_olt_standard_oam_keepalive_state, {"0", "1", "on"}),
              not_a_word("oam_keepalive_state", "enable_disable"));
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(OltSettings, NumbersThatAreRefused)
{
    const std::vector<std::tuple<const char*, const char*>> commands = {
        {"set olt 0 interface-mtu ", "INTERFACE_MTU"},
        {"set mpcp-timeout olt 0 timeout ", "TIMEOUT"},
        {"set oam-timeout olt 0 timeout ", "TIMEOUT"},
    };
    for (const auto& [command, name] : commands) {
        const std::vector<std::pair<const char*, std::string>> cases = {
            {"65536", out_of_range(name, "0", "65535")},
            {"0x10000", out_of_range(name, "0", "65535")},
            {"-1", negative(name)},
            {"100x", misread(name)},
            {"99999999999", misread(name)},
            {"0x-1", misread(name)},
        };
        for (const auto& [word, message] : cases) {
            EXPECT_EQ(type(std::string(command) + word), message) << command << word;
            EXPECT_EQ(result, -1);
        }
    }
    for (const char* number : {"0", "5"})
        EXPECT_EQ(call(set_olt_ne_mode_num, {"0", number}), out_of_range("mode", "1", "4"));
    EXPECT_EQ(call(set_olt_ne_mode_num, {"0", "mode1"}), misread("mode"));
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(OltSettings, OltIndexConversion)
{
    for (const Setting& setting : settings()) {
        for (std::vector<Line> lines : {setting.sets, setting.shows}) {
            for (const Line& line : lines) {
                std::string text = line_of({line.node, line.text}, 0, setting.values[0].typed);
                const auto at = std::string(line.text).find('#');
                if (at == std::string::npos) continue;
                const std::string begin =
                    line_of({line.node, std::string(line.text).substr(0, at).c_str()}, 0, setting.values[0].typed);
                const std::string end = text.substr(begin.size() + 1);
                enter(line.node);
                EXPECT_EQ(type(begin + "3x" + end), misread("OLT_id")) << line.text;
                EXPECT_EQ(result, -1);
                EXPECT_EQ(type(begin + "0x8000" + end), out_of_range("OLT_id", "-32767", "32767"));
                EXPECT_EQ(result, -1);
                EXPECT_EQ(journal(), Calls{});
                EXPECT_EQ(type(begin + "0x7FFF" + end), NOT_EXIST);
                EXPECT_EQ(result, -1003);
                journal();
            }
        }
    }
}

// --- OAM ---------------------------------------------------------------------------------------------------------

class Oam : public OltSettings {
  protected:
    Oam()
    {
        load(std::string(NETWORK) + "\n[[olt]]\nid = 2\nmac = \"00-0a-c4-00-00-03\"\n"
                                    "[[olt.onu]]\nfirst = 0\ncount = 2\nmac = \"00-0a-c4-10-00-00\"\n"
                                    "[[olt.onu]]\nid = 254\nmac = \"00-0a-c4-10-00-fe\"\n"
                                    "[[olt.onu]]\nid = 5\nmac = \"00-0a-c4-10-00-05\"\nmode = \"unregistered\"\n");
    }
};

TEST_F(Oam, KeepaliveOfEachLink)
{
    for (const char* llid : {"0", "254"}) {
        const std::string link = std::string("olt 2 llid ") + llid;
        EXPECT_EQ(type("show oam-keepalive-state " + link), "OLT_id: 2 \r\noam keepalive state: enable \r\n");
        EXPECT_EQ(type("set oam-keepalive-state " + link + " disable"), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(type("show oam-keepalive-state " + link), "OLT_id: 2 \r\noam keepalive state: disable \r\n");
        const std::string call = std::string("(2, ") + llid;
        EXPECT_EQ(journal(), (Calls{"NEP_get_standard_oam_keepalive_state" + call + ") = 0 -> 1",
                                    "NEP_set_standard_oam_keepalive_state" + call + ", 0) = 0",
                                    "NEP_get_standard_oam_keepalive_state" + call + ") = 0 -> 0"}));
    }
    EXPECT_EQ(type("show oam-keepalive-state olt 2 llid 1"), "OLT_id: 2 \r\noam keepalive state: enable \r\n");
    EXPECT_EQ(type("set oam-keepalive-state olt 2 llid 0xfe enable"), "");
    EXPECT_EQ(type("show oam-keepalive-state olt 2 llid 254"), "OLT_id: 2 \r\noam keepalive state: enable \r\n");
}

TEST_F(Oam, KeepaliveOfLinksThatAreNotThere)
{
    for (const char* link : {"2 llid 2", "2 llid 5", "2 llid 255", "2 llid -1", "0 llid 0"}) {
        EXPECT_EQ(type(std::string("set oam-keepalive-state olt ") + link + " enable"), NO_ONU) << link;
        EXPECT_EQ(result, -1007);
        EXPECT_EQ(type(std::string("show oam-keepalive-state olt ") + link), NO_ONU) << link;
        EXPECT_EQ(result, -1007);
    }
    EXPECT_EQ(type("set oam-keepalive-state olt 1 llid 0 enable"), NOT_EXIST);
    EXPECT_EQ(type("show oam-keepalive-state olt 1 llid 0"), NOT_EXIST);
    journal();
    for (const char* line :
         {"set oam-keepalive-state olt 2 llid 1y enable", "show oam-keepalive-state olt 2 llid 1y"}) {
        EXPECT_EQ(type(line), misread("LLID_INDEX")) << line;
        EXPECT_EQ(result, -1);
    }
    for (const char* line :
         {"set oam-keepalive-state olt 2y llid 1 enable", "show oam-keepalive-state olt 2y llid 1"}) {
        EXPECT_EQ(type(line), misread("OLT_id")) << line;
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(Oam, KeepaliveFailures)
{
    inject("NEP_set_standard_oam_keepalive_state", -2);
    inject("NEP_get_standard_oam_keepalive_state", -2);
    EXPECT_EQ(type("set oam-keepalive-state olt 2 llid 0 disable"), TIME_OUT);
    EXPECT_EQ(type("show oam-keepalive-state olt 2 llid 0"), TIME_OUT);
    EXPECT_EQ(result, -2);
    EXPECT_EQ(type("show oam-keepalive-state olt 2 llid 0"), "OLT_id: 2 \r\noam keepalive state: enable \r\n");
}

TEST_F(Oam, RateLimit)
{
    enter(OLT_PON_NODE);
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"no oam rate-limited", "0"}, {"oam rate-limited", "1"}, {"oam rate-limited enable", "1"}};
    for (const auto& [line, state] : cases) {
        EXPECT_EQ(type(line), "") << line;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{std::string("NEP_set_oam_configuration(0, ") + state + ") = 0"});
        inject("NEP_set_oam_configuration", -2);
        EXPECT_EQ(type(line), TIME_OUT);
        EXPECT_EQ(result, -2);
        enter(OLT_PON_NODE, 1);
        EXPECT_EQ(type(line), NOT_EXIST);
        EXPECT_EQ(result, -1003);
        enter(OLT_PON_NODE);
        journal();
    }
}

} // namespace
