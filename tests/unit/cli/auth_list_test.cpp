// SPDX-License-Identifier: Apache-2.0
#include "olt/auth_list.h"

#include <algorithm>
#include <cstdio>

#include "links_fixture.h"

namespace {

constexpr const char* ONU_5 = "02-00-00-00-00-05";
constexpr const char* LEFT = "onu-deregistered: olt 0, onu 5, mac 02-00-00-00-00-05, reason refused \r\n";
constexpr const char* CAME = "onu-registered: olt 0, onu 5, mac 02-00-00-00-00-05, rate 1G/1G, rtt 1000 \r\n";

class AuthList : public Links {
  protected:
    AuthList()
    {
        enter(OLT_NODE);
    }

    // ONUs 5 and 6, which ask for registration again 5 s after they were sent away.
    void load_two_onus()
    {
        load(laboratory({{5}, {6}}, "[life]\nreturn_time = 5\n"));
    }
    static std::string mac_of(int number)
    {
        char text[18];
        snprintf(text, sizeof text, "02-00-00-00-%02x-%02x", number / 256, number % 256);
        return text;
    }
};

TEST_F(AuthList, Settings)
{
    const std::pair<const char*, const char*> cases[] = {
        {"set auth-list operation-mode mac-list", "NEP_set_authentication_mode(0, 1) = 0"},
        {"set auth-list operation-mode hybrid", "NEP_set_authentication_mode(0, 2) = 0"},
        {"set auth-list operation-mode disable", "NEP_set_authentication_mode(0, 0) = 0"},
        {"set auth-list active-list black-list", "NEP_set_active_authentication_list_type(0, 1) = 0"},
        {"set auth-list active-list white-list", "NEP_set_active_authentication_list_type(0, 0) = 0"},
    };
    for (const auto& [line, call] : cases) {
        EXPECT_EQ(type(line), "") << line;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{call});
    }
    enter(CONFIG_NODE, 9);
    EXPECT_EQ(type("set auth-list olt 0x0 active-list black-list"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_set_active_authentication_list_type(0, 1) = 0"});
    EXPECT_EQ(type("show auth-list active-list olt 0"), "OLT_id: 0 \r\nauth list active list: black-list \r\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_get_active_authentication_list_type(0) = 0 -> 1"});
    EXPECT_EQ(type("set auth-list olt 0 active-list white-list"), "");
    enter(OLT_NODE);
    EXPECT_EQ(type("show auth-list active-list"), "OLT_id: 0 \r\nauth list active list: white-list \r\n");
    EXPECT_EQ(result, 0);
}

TEST_F(AuthList, Words)
{
    for (const char* word : {"", "enable", "mac-lists", "disabledisable"}) {
        EXPECT_EQ(call(set_auth_list_operation_mode, {word}),
                  "Error reading operation_mode parameter (of the type auth_list_operation_mode), aborting\r\n");
        EXPECT_EQ(result, -1);
    }
    for (const std::vector<std::string>& words : {std::vector<std::string>{"grey-list"}, {"0", "grey-list"}, {""}}) {
        EXPECT_EQ(call(set_active_auth_list_type, words),
                  "Error reading active_list parameter (of the type active_list), aborting\r\n");
        EXPECT_EQ(result, -1);
    }
    const std::string read_error = "Error reading OLT_id parameter for command from input, aborting\r\n";
    enter(CONFIG_NODE);
    for (const char* line : {"set auth-list olt x active-list white-list", "show auth-list active-list olt 3x",
                             "show auth-list configuration olt x"}) {
        EXPECT_EQ(type(line), read_error) << line;
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(AuthList, AddressesAreKeptByList)
{
    EXPECT_EQ(type("add auth-list-mac mac-address 02-00-00-00-00-0A"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(type("add auth-list-mac mac-address 2-0-0-0-0-1"), "");
    EXPECT_EQ(type("add auth-list-mac mac-address 02-00-00-00-00-0a"), ""); // once more changes nothing
    EXPECT_EQ(journal(), (Calls{"NEP_set_mac_address_authentication(0, 02-00-00-00-00-0a, 1) = 0",
                                "NEP_set_mac_address_authentication(0, 02-00-00-00-00-01, 1) = 0",
                                "NEP_set_mac_address_authentication(0, 02-00-00-00-00-0a, 1) = 0"}));
    const std::string white = "OLT_id: 0 \r\n"
                              "auth list operation mode: disable \r\n"
                              "auth list active list: white-list \r\n"
                              "auth list mac address: 02-00-00-00-00-0a \r\n"
                              "auth list mac address: 02-00-00-00-00-01 \r\n";
    EXPECT_EQ(type("show auth-list configuration"), white);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(),
              (Calls{"NEP_get_authentication_mode(0) = 0 -> 0", "NEP_get_active_authentication_list_type(0) = 0 -> 0",
                     "NEP_get_mac_address_authentication(0) = 0 -> [02-00-00-00-00-0a,02-00-00-00-00-01]"}));
    type("set auth-list active-list black-list");
    EXPECT_EQ(type("show auth-list configuration"), "OLT_id: 0 \r\n"
                                                    "auth list operation mode: disable \r\n"
                                                    "auth list active list: black-list \r\n");
    type("set auth-list active-list white-list");
    enter(CONFIG_NODE, 9);
    EXPECT_EQ(type("show auth-list configuration olt 0"), white);
    EXPECT_EQ(result, 0);
    enter(OLT_NODE);
    journal();
    EXPECT_EQ(type("no auth-list-mac mac-address 02-00-00-00-00-0a"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_set_mac_address_authentication(0, 02-00-00-00-00-0a, 0) = 0"});
    EXPECT_EQ(type("no auth-list-mac mac-address 02-00-00-00-00-0a"), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    journal();
    EXPECT_EQ(type("no auth-list-mac all-table"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_clear_mac_address_authentication_table(0) = 0"});
    type("show auth-list configuration");
    EXPECT_EQ(journal().back(), "NEP_get_mac_address_authentication(0) = 0 -> []");
}

TEST_F(AuthList, Addresses)
{
    const std::pair<const char*, const char*> cases[] = {
        {"02-00-00-00-00-055", "Error reading mac_address has wrong length, aborting\r\n"},
        {"02-00-00-00-00", "Error reading MAC address parameter from the MAC address string, aborting\r\n"},
        {"02-00-00-00-00-0g", "Error reading MAC address parameter from the MAC address string, aborting\r\n"},
    };
    for (const char* command : {"add auth-list-mac mac-address ", "no auth-list-mac mac-address "}) {
        for (const auto& [mac, message] : cases) {
            EXPECT_EQ(type(std::string(command) + mac), message) << mac;
            EXPECT_EQ(result, -1);
        }
    }
    for (cmd_handler* handler : {set_auth_list_mac, no_auth_list_mac}) {
        EXPECT_EQ(call(handler, {" "}), "Error reading mac_address parameter for command from input, aborting\r\n");
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
    // Groups and no address at all are no ONU's.
    for (const char* mac : {"01-00-5e-00-00-01", "ff-ff-ff-ff-ff-ff", "00-00-00-00-00-00"}) {
        EXPECT_EQ(type(std::string("add auth-list-mac mac-address ") + mac), BAD_PARAMETER) << mac;
        EXPECT_EQ(result, -4);
    }
}

TEST_F(AuthList, AListIsFullAt256)
{
    for (int i = 0; i < 256; ++i)
        EXPECT_EQ(type("add auth-list-mac mac-address " + mac_of(i)), "");
    EXPECT_EQ(type("add auth-list-mac mac-address " + mac_of(256)),
              "Command return error.\r\naddress table is full (error code : -1013)\r\n");
    EXPECT_EQ(result, -1013);
    const std::string shown = type("show auth-list configuration");
    EXPECT_NE(shown.find("auth list mac address: " + mac_of(0) + " \r\n"), std::string::npos);
    EXPECT_NE(shown.find("auth list mac address: " + mac_of(255) + " \r\n"), std::string::npos);
    EXPECT_EQ(std::count(shown.begin(), shown.end(), '\n'), 3 + 256);
    EXPECT_EQ(type("no auth-list-mac mac-address " + mac_of(7)), "");
    EXPECT_EQ(type("add auth-list-mac mac-address " + mac_of(256)), "");
    EXPECT_EQ(result, 0);
}

TEST_F(AuthList, ABlackListedOnuIsKeptOut)
{
    load_two_onus();
    EventLines events;
    type("set auth-list active-list black-list");
    type(std::string("add auth-list-mac mac-address ") + ONU_5);
    EXPECT_EQ(events.after(), ""); // nobody asks the list yet
    type("set auth-list operation-mode mac-list");
    EXPECT_EQ(events.after(), LEFT);
    const char* refused = "onu-registration-refused: olt 0, mac 02-00-00-00-00-05, reason black-listed \r\n";
    EXPECT_EQ(events.after(5000), refused);
    EXPECT_EQ(events.after(5000), refused);
    type(std::string("no auth-list-mac mac-address ") + ONU_5);
    EXPECT_EQ(events.after(5000), CAME);
    type(std::string("add auth-list-mac mac-address ") + ONU_5);
    EXPECT_EQ(events.after(), LEFT);
    type("set auth-list operation-mode disable");
    EXPECT_EQ(events.after(5000), CAME);
}

TEST_F(AuthList, OnlyWhiteListedOnusAreAdmitted)
{
    load_two_onus();
    EventLines events;
    type(std::string("add auth-list-mac mac-address ") + mac_of(6));
    type("set auth-list operation-mode mac-list");
    EXPECT_EQ(events.after(), LEFT);
    EXPECT_EQ(events.after(5000), "onu-registration-refused: olt 0, mac 02-00-00-00-00-05, reason not-authorized \r\n");
    type(std::string("add auth-list-mac mac-address ") + ONU_5);
    EXPECT_EQ(events.after(5000), CAME);
    type("no auth-list-mac all-table");
    EXPECT_EQ(events.after(),
              std::string(LEFT) + "onu-deregistered: olt 0, onu 6, mac 02-00-00-00-00-06, reason refused \r\n");
    type("set auth-list active-list black-list"); // which is empty
    EXPECT_EQ(events.after(5000), std::string(CAME) + "onu-registered: olt 0, onu 6, mac 02-00-00-00-00-06, rate "
                                                      "1G/1G, rtt 1000 \r\n");
    type("set auth-list active-list white-list");
    EXPECT_NE(events.after(), "");
}

TEST_F(AuthList, InHybridModeOnusRegisterUnauthorized)
{
    load_two_onus();
    EventLines events;
    type("set auth-list active-list black-list");
    type("set auth-list operation-mode hybrid");
    EXPECT_EQ(events.after(), "");
    type(std::string("add auth-list-mac mac-address ") + ONU_5);
    EXPECT_EQ(events.after(), "onu-authorization-changed: olt 0, llid 5, mac 02-00-00-00-00-05, authorized no \r\n"
                              "oam-link-changed: olt 0, llid 5, state down \r\n");
    type("onu deregister 5 wait-for-completion");
    events.after();
    EXPECT_EQ(events.after(5000), CAME);
    enter(CONFIG_NODE);
    EXPECT_EQ(type("show llid mode 0 5"), "OLT_id: 0 \r\nmode: unauthorized \r\n");
    enter(OLT_NODE);
    type(std::string("no auth-list-mac mac-address ") + ONU_5);
    EXPECT_EQ(events.after(), "onu-authorization-changed: olt 0, llid 5, mac 02-00-00-00-00-05, authorized yes \r\n"
                              "oam-link-changed: olt 0, llid 5, state up \r\n");
}

TEST_F(AuthList, Failures)
{
    const std::pair<const char*, const char*> cases[] = {
        {"set auth-list operation-mode hybrid", "NEP_set_authentication_mode"},
        {"set auth-list active-list white-list", "NEP_set_active_authentication_list_type"},
        {"show auth-list active-list", "NEP_get_active_authentication_list_type"},
        {"add auth-list-mac mac-address 02-00-00-00-00-05", "NEP_set_mac_address_authentication"},
        {"no auth-list-mac mac-address 02-00-00-00-00-05", "NEP_set_mac_address_authentication"},
        {"no auth-list-mac all-table", "NEP_clear_mac_address_authentication_table"},
        {"show auth-list configuration", "NEP_get_authentication_mode"},
        {"show auth-list configuration", "NEP_get_active_authentication_list_type"},
        {"show auth-list configuration", "NEP_get_mac_address_authentication"},
    };
    for (const auto& [line, operation] : cases) {
        enter(OLT_NODE);
        inject(operation, -5);
        EXPECT_EQ(type(line), HARDWARE) << line;
        EXPECT_EQ(result, -5);
        enter(OLT_NODE, 1);
        EXPECT_EQ(type(line), NO_OLT) << line;
        EXPECT_EQ(result, -1003);
    }
    enter(CONFIG_NODE);
    for (const char* line : {"set auth-list olt 1 active-list white-list", "show auth-list active-list olt 1",
                             "show auth-list configuration olt 1"}) {
        EXPECT_EQ(type(line), NO_OLT) << line;
        EXPECT_EQ(result, -1003);
    }
}

} // namespace
