// SPDX-License-Identifier: Apache-2.0
// Taking an ONU off the PON of an OLT, named by its index or its MAC address.
#include "olt/onu_deregister.h"

#include <cstring>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

// On false the refusal is printed, and *result is what the handler returns.
bool read_onu(vty* session, const char* text, int16_t* onu_id, int* result)
{
    // The forms have the same number of words; only the keyword tells them apart.
    if (strstr(session->buf, "onu-mac-address") != nullptr)
        return read_link_by_mac(session, session->olt_id, text, onu_to_act_on, onu_id, result);
    *result = -1;
    return read_number(session, text, signed_16("ONU_INDEX"), onu_id);
}

int deregister(vty* session, const char* onu, int32_t wait)
{
    int16_t onu_id;
    int result;
    if (!read_onu(session, onu, &onu_id, &result)) return result;
    return report(session, NEP_deregister_onu(session->olt_id, onu_id, wait));
}

} // namespace

int onu_closing(cmd_element*, vty* session, int, char** argv)
{
    return deregister(session, argv[0], 0);
}

int onu_closing_wait(cmd_element*, vty* session, int, char** argv)
{
    return deregister(session, argv[0], 1);
}

static constinit cmd_element onu_closing_cmd = command("onu deregister ONU_INDEX", onu_closing,
                                                       "An ONU of this OLT\n"
                                                       "Take the ONU off the PON; it may register again\n"
                                                       "Index of the ONU, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element onu_closing_mac_cmd =
    command("onu deregister onu-mac-address AA-BB-CC-DD-EE-FF", onu_closing,
            "An ONU of this OLT\n"
            "Take the ONU off the PON; it may register again\n"
            "Name the ONU by its MAC address\n"
            "MAC address of the ONU, six hexadecimal fields\n");

static constinit cmd_element onu_closing_wait_cmd =
    command("onu deregister ONU_INDEX wait-for-completion", onu_closing_wait,
            "An ONU of this OLT\n"
            "Take the ONU off the PON; it may register again\n"
            "Index of the ONU, 0-254, decimal or with 0x hexadecimal\n"
            "Go on only when the ONU has left\n");

static constinit cmd_element onu_closing_wait_mac_cmd =
    command("onu deregister onu-mac-address AA-BB-CC-DD-EE-FF wait-for-completion", onu_closing_wait,
            "An ONU of this OLT\n"
            "Take the ONU off the PON; it may register again\n"
            "Name the ONU by its MAC address\n"
            "MAC address of the ONU, six hexadecimal fields\n"
            "Go on only when the ONU has left\n");

namespace epon {

void install_onu_deregister()
{
    install({{&onu_closing_cmd, in(OLT_NODE)},
             {&onu_closing_mac_cmd, in(OLT_NODE)},
             {&onu_closing_wait_cmd, in(OLT_NODE)},
             {&onu_closing_wait_mac_cmd, in(OLT_NODE)}});
}

} // namespace epon
