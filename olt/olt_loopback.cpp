// SPDX-License-Identifier: Apache-2.0
// Loopbacks of an OLT's own ports, one at a time.
#include "olt/olt_loopback.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

constexpr Word loopback_words[] = {{"pon-mac", OLT_LOOPBACK_PON_MAC},
                                   {"pon-phy", OLT_LOOPBACK_PON_PHY},
                                   {"system-phy", OLT_LOOPBACK_SYSTEM_PHY},
                                   {"system-mac", OLT_LOOPBACK_SYSTEM_MAC},
                                   {"sniff", OLT_LOOPBACK_SNIFF}};
constexpr WordTable loopback = {"test_loopback", loopback_words};

} // namespace

int test_loopback_mode(cmd_element*, vty* session, int, char** argv)
{
    int32_t mode;
    if (!read_word(session, argv[0], "type", loopback, &mode)) return -1;
    return report(session, NEP_set_loopback_mode(session->olt_id, mode));
}

int no_test_loopback_mode(cmd_element*, vty* session, int, char**)
{
    return report(session, NEP_set_loopback_mode(session->olt_id, OLT_LOOPBACK_NONE));
}

static constinit cmd_element test_loopback_mode_cmd =
    command("test loopback type (pon-mac|pon-phy|system-phy|system-mac|sniff)", test_loopback_mode,
            "Run a test\n"
            "Send frames back where they came from\n"
            "Where the loopback is closed\n"
            "pon-mac: in the MAC of the PON port; pon-phy: in the PHY of the PON port; "
            "system-phy: in the PHY of the system port; system-mac: in the MAC of the system port; "
            "sniff: at the sniffing port\n");

static constinit cmd_element no_test_loopback_mode_cmd = command("no test loopback", no_test_loopback_mode,
                                                                 "Turn a setting off, or take an object away\n"
                                                                 "A test that runs\n"
                                                                 "Send frames back where they came from\n");

namespace epon {

void install_olt_loopback()
{
    install({{&test_loopback_mode_cmd, in(OLT_NODE)}, {&no_test_loopback_mode_cmd, in(OLT_NODE)}});
}

} // namespace epon
