// SPDX-License-Identifier: Apache-2.0
// Loopbacks of an ONU: the standard one of OAM, and those of its PON port for tests.
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/link.h"
#include "olt/onu.h"

using namespace epon;

namespace {

constexpr Word speed_limit_words[] = {{"mdio", ONU_TEST_SPEED_MDIO}, {"10", 10}, {"100", 100}, {"1000", 1000}};
constexpr WordTable speed_limits = {"speed_limit", speed_limit_words};

constexpr Word loopback_type_words[] = {{"pon-mac", ONU_TEST_LOOPBACK_PON_MAC}, {"pon-phy", ONU_TEST_LOOPBACK_PON_PHY}};
constexpr WordTable loopback_types = {"loopback_type", loopback_type_words};

constexpr NumberRule phy_timeout = unsigned_range("timeout", 1, 65535);

bool read_onu_id(vty* session, const char* text, int16_t* onu_id)
{
    return read_number(session, text, signed_16("ONU_ID"), onu_id);
}

int set_standard(vty* session, const char* onu, int32_t state)
{
    int16_t onu_id;
    if (!read_onu_id(session, onu, &onu_id)) return -1;
    return report(session, NEP_set_standard_onu_loopback(session->olt_id, onu_id, state));
}

int set_test_mode(vty* session, int32_t loopback, int32_t state, int32_t timeout, int32_t speed_limit)
{
    int16_t onu_id;
    int result;
    if (!read_session_onu(session, &onu_id, &result)) return result;
    return report(session,
                  NEP_TESTING_set_onu_test_mode(session->olt_id, onu_id, loopback, state, timeout, speed_limit));
}

} // namespace

int set_standard_onu_loopback(cmd_element*, vty* session, int, char** argv)
{
    return set_standard(session, argv[0], 1);
}

int no_standard_onu_loopback(cmd_element*, vty* session, int, char** argv)
{
    return set_standard(session, argv[0], 0);
}

int show_standard_onu_loopback_mode(cmd_element*, vty* session, int, char** argv)
{
    int16_t onu_id;
    if (!read_onu_id(session, argv[0], &onu_id)) return -1;
    int32_t state = 0;
    const int16_t code = NEP_get_standard_onu_loopback(session->olt_id, onu_id, &state);
    return show_link_value(session, session->olt_id, code, "standard onu loopback mode", enable_disable, state);
}

int onu_test_phy_mode(cmd_element*, vty* session, int, char** argv)
{
    int32_t timeout;
    int32_t speed_limit;
    if (!read_number(session, argv[0], phy_timeout, &timeout)) return -1;
    if (!read_word(session, argv[1], "speed_limit", speed_limits, &speed_limit)) return -1;
    return set_test_mode(session, ONU_TEST_LOOPBACK_PON_PHY, 1, timeout, speed_limit);
}

int onu_test_mac_mode(cmd_element*, vty* session, int, char**)
{
    return set_test_mode(session, ONU_TEST_LOOPBACK_PON_MAC, 1, 0, 0);
}

int no_onu_test_mode(cmd_element*, vty* session, int, char** argv)
{
    int32_t loopback;
    if (!read_word(session, argv[0], "type", loopback_types, &loopback)) return -1;
    return set_test_mode(session, loopback, 0, 0, 0);
}

static constinit cmd_element set_standard_onu_loopback_cmd =
    command("set standard-onu-loopback onu-id ONU_ID", set_standard_onu_loopback,
            "Change a setting\n"
            "OAM remote loopback: the ONU sends back all that it receives, and its users are cut off\n"
            "The ONU that loops\n"
            "Index of the ONU, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element no_standard_onu_loopback_cmd =
    command("no standard-onu-loopback onu-id ONU_ID", no_standard_onu_loopback,
            "Turn a setting off, or take an object away\n"
            "OAM remote loopback: the ONU serves its users again\n"
            "The ONU that loops\n"
            "Index of the ONU, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_standard_onu_loopback_mode_cmd =
    command("show standard-onu-loopback-mode onu-id ONU_ID", show_standard_onu_loopback_mode,
            "Show settings and state\n"
            "Whether OAM remote loopback is closed\n"
            "The ONU to look at\n"
            "Index of the ONU, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element onu_test_phy_mode_cmd =
    command("test loopback type phy timeout <1-65535> speed-limit (mdio|10|100|1000)", onu_test_phy_mode,
            "Run a test\n"
            "Send frames back where they came from\n"
            "Where the loopback is closed\n"
            "In the PHY of this ONU's PON port\n"
            "How long the loopback stays closed\n"
            "Seconds, 1-65535\n"
            "Speed at which the PHY loops\n"
            "mdio: as its MDIO registers say; 10: 10 Mbit/s; 100: 100 Mbit/s; 1000: 1000 Mbit/s\n");

static constinit cmd_element onu_test_mac_mode_cmd = command("test loopback type mac", onu_test_mac_mode,
                                                             "Run a test\n"
                                                             "Send frames back where they came from\n"
                                                             "Where the loopback is closed\n"
                                                             "In the MAC of this ONU's PON port, until it is opened\n");

static constinit cmd_element no_onu_test_mode_cmd =
    command("no test loopback type (pon-mac|pon-phy)", no_onu_test_mode,
            "Turn a setting off, or take an object away\n"
            "A test that runs\n"
            "Send frames back where they came from\n"
            "Which loopback is opened\n"
            "pon-mac: the one in the MAC of this ONU's PON port; pon-phy: the one in the PHY of this ONU's PON port\n");

namespace epon {

void install_onu_loopback()
{
    install({{&onu_test_phy_mode_cmd, in(ONU_PON_NODE)},
             {&onu_test_mac_mode_cmd, in(ONU_PON_NODE)},
             {&no_onu_test_mode_cmd, in(ONU_PON_NODE)},
             {&set_standard_onu_loopback_cmd, in(OLT_NODE)},
             {&no_standard_onu_loopback_cmd, in(OLT_NODE)},
             {&show_standard_onu_loopback_mode_cmd, in(OLT_NODE)}});
}

} // namespace epon
