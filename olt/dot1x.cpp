// SPDX-License-Identifier: Apache-2.0
// Port access control of an OLT's ONUs: the secret that it shares with the authentication server, and its timers.
#include "olt/dot1x.h"

#include <cstring>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

using Configuration = OLT_802_1x_configuration;

struct NumberArgument {
    NumberRule rule;
    uint16_t Configuration::*field;
};

// In the order of the words behind the key.
constexpr NumberArgument number_arguments[] = {
    {unsigned_16("QUITE_PERIOD"), &Configuration::quiet_period},
    {unsigned_16("TX_PERIOD"), &Configuration::tx_period},
    {unsigned_16("SUPPLICANT_TO"), &Configuration::supplicant_timeout},
    {unsigned_16("SERVER_TO"), &Configuration::server_timeout},
    {unsigned_16("MAX_REAUTHENTICATION"), &Configuration::max_reauthentications},
    {unsigned_range("request", 1, 10), &Configuration::max_requests},
};

bool read_secret(vty* session, const char* text, char secret[DOT1X_KEY_SIZE])
{
    const size_t length = strlen(text);
    if (length >= DOT1X_KEY_SIZE) {
        RBX_vty_out(session, "Error reading %s parameter, internal buffer is too short, aborting!%s",
                    "SHARED_SECRET_KEY", VTY_NEWLINE(session));
        return false;
    }
    memcpy(secret, text, length + 1);
    return true;
}

} // namespace

int config_802_1x(cmd_element*, vty* session, int, char** argv)
{
    Configuration configuration = {};
    configuration.enabled = 1;
    if (!read_secret(session, *argv++, configuration.shared_secret)) return -1;
    for (const NumberArgument& argument : number_arguments) {
        if (!read_number(session, *argv++, argument.rule, &(configuration.*argument.field))) return -1;
    }
    return report(session, NEP_set_802_1x_configuration(session->olt_id, &configuration));
}

int no_config_802_1x(cmd_element*, vty* session, int, char**)
{
    const Configuration configuration = {};
    return report(session, NEP_set_802_1x_configuration(session->olt_id, &configuration));
}

static constinit cmd_element config_802_1x_cmd =
    command("802-1x configuration key SHARED_SECRET_KEY quite-period QUITE_PERIOD tx-period TX_PERIOD supplicant "
            "SUPPLICANT_TO server SERVER_TO reauthentication MAX_REAUTHENTICATION request <1-10>",
            config_802_1x,
            "Port access control of this OLT's ONUs (IEEE 802.1X)\n"
            "Turn it on with these values\n"
            "Secret that is shared with the authentication server\n"
            "Secret, 1-31 characters without blanks\n"
            "Pause after a failed authentication\n"
            "Pause in seconds, 0-65535\n"
            "Time between two requests for the identity of an ONU\n"
            "Time in seconds, 1-65535\n"
            "How long the OLT waits for an answer of the ONU\n"
            "Time in seconds, 1-65535\n"
            "How long the OLT waits for an answer of the authentication server\n"
            "Time in seconds, 1-65535\n"
            "How often an authentication is tried before the link counts as unauthorized\n"
            "Number of attempts, 1-65535\n"
            "How often an unanswered request is repeated\n"
            "Number of repetitions, 1-10\n");

static constinit cmd_element no_config_802_1x_cmd = command("no 802-1x configuration", no_config_802_1x,
                                                            "Turn a setting off, or take an object away\n"
                                                            "Port access control of this OLT's ONUs (IEEE 802.1X)\n"
                                                            "Turn it off; its secret and its timers are forgotten\n");

namespace epon {

void install_dot1x()
{
    install({{&config_802_1x_cmd, in(OLT_NODE)}, {&no_config_802_1x_cmd, in(OLT_NODE)}});
}

} // namespace epon
