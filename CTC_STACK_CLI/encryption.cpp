// SPDX-License-Identifier: Apache-2.0
// Encryption of an ONU's downlink that the CTC stack drives: start and stop, and how often keys change.
#include "CTC_STACK_CLI/encryption.h"

#include <cinttypes>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CTC_STACK_CLI/onu_report.h"

using namespace epon;

namespace {

// A command without words of its own, on the session's ONU.
int act_on_session_onu(vty* session, int16_t (*act)(int16_t olt_id, int16_t onu_id))
{
    OnuTarget onu;
    int result;
    if (!read_onu_target(session, 0, nullptr, &onu, &result)) return result;
    return report_ctc(session, act(onu.olt_id, onu.onu_id));
}

} // namespace

int encryption_timing(cmd_element*, vty* session, int, char** argv)
{
    uint8_t update_key_time;
    uint16_t no_reply_timeout;
    if (!read_number(session, argv[0], unsigned_range("update_key_time", 0, 255), &update_key_time)) return -1;
    if (!read_number(session, argv[1], unsigned_16("no_reply_timeout"), &no_reply_timeout)) return -1;
    return report_ctc(session, CTC_STACK_set_encryption_timing(update_key_time, no_reply_timeout));
}

int show_encryption_timing(cmd_element*, vty* session, int, char**)
{
    uint8_t update_key_time;
    uint16_t no_reply_timeout;
    const int16_t code = CTC_STACK_get_encryption_timing(&update_key_time, &no_reply_timeout);
    if (code != 0) return report_ctc(session, code);
    const char* newline = VTY_NEWLINE(session);
    RBX_vty_out(session, "%s: %hu %s", "update_key_time", static_cast<uint16_t>(update_key_time), newline);
    RBX_vty_out(session, "%s: %hu %s", "no_reply_timeout", no_reply_timeout, newline);
    return 0;
}

int encryption_timing_threshold(cmd_element*, vty* session, int, char** argv)
{
    uint8_t threshold;
    if (!read_number(session, argv[0], unsigned_range("start_encryption_threshold", 0, 255), &threshold)) return -1;
    return report_ctc(session, CTC_STACK_set_encryption_timing_threshold(threshold));
}

int show_encryption_timing_threshold(cmd_element*, vty* session, int, char**)
{
    uint8_t threshold;
    const int16_t code = CTC_STACK_get_encryption_timing_threshold(&threshold);
    if (code != 0) return report_ctc(session, code);
    RBX_vty_out(session, "%s: %hu %s", "start_encryption_threshold", static_cast<uint16_t>(threshold),
                VTY_NEWLINE(session));
    return 0;
}

int encryption_key_update_time_set(cmd_element*, vty* session, int argc, char** argv)
{
    OnuTarget onu;
    char** words;
    int result;
    uint32_t update_key_timeout;
    uint32_t re_transmit_timeout;
    if (!read_onu_target(session, argc, argv, 2, &onu, &words, &result)) return result;
    if (!read_number(session, words[0], unsigned_32("update_key_timeout"), &update_key_timeout)) return -1;
    if (!read_number(session, words[1], unsigned_32("re_transmit_timeout"), &re_transmit_timeout)) return -1;
    return report_ctc(
        session, CTC_STACK_set_encryption_update_time(onu.olt_id, onu.onu_id, update_key_timeout, re_transmit_timeout));
}

int show_encryption_key_update_time(cmd_element*, vty* session, int argc, char** argv)
{
    OnuTarget onu;
    int result;
    uint32_t update_key_timeout;
    uint32_t re_transmit_timeout;
    if (!read_onu_target(session, argc, argv, &onu, &result)) return result;
    const int16_t code =
        CTC_STACK_get_encryption_update_time(onu.olt_id, onu.onu_id, &update_key_timeout, &re_transmit_timeout);
    if (code != 0) return report_ctc(session, code);
    print_onu(session, onu);
    const char* newline = VTY_NEWLINE(session);
    RBX_vty_out(session, "%s: %" PRIu32 " %s", "update_key_timeout", update_key_timeout, newline);
    RBX_vty_out(session, "%s: %" PRIu32 " %s", "re_transmit_timeout", re_transmit_timeout, newline);
    return 0;
}

int ctc_start_encryption(cmd_element*, vty* session, int, char**)
{
    return act_on_session_onu(session, CTC_STACK_start_encryption);
}

int ctc_stop_encryption(cmd_element*, vty* session, int, char**)
{
    return act_on_session_onu(session, CTC_STACK_stop_encryption);
}

static constinit cmd_element encryption_timing_cmd =
    command("ctc encryption-timing update-key-time <0-255> no-reply-timeout <0-2550>", encryption_timing,
            "Management of ONUs by the CTC extension of OAM\n"
            "Keys of all ONUs without a timing of their own\n"
            "How long a key is used\n"
            "Time, seconds, 0-255; 0: a key is never changed\n"
            "How long the stack waits for a new key\n"
            "Time, milliseconds, 0-2550\n");

static constinit cmd_element show_encryption_timing_cmd = command("show ctc encryption-timing", show_encryption_timing,
                                                                  "Show settings and state\n"
                                                                  "Management of ONUs by the CTC extension of OAM\n"
                                                                  "Keys of all ONUs without a timing of their own\n");

static constinit cmd_element encryption_timing_threshold_cmd =
    command("ctc encryption-timing-threshold start-encryption-threshold <0-255>", encryption_timing_threshold,
            "Management of ONUs by the CTC extension of OAM\n"
            "When an encryption counts as failed\n"
            "How many requests for a key may go unanswered, one after the other\n"
            "Number of requests, 0-255; 0 is as 1\n");

static constinit cmd_element show_encryption_timing_threshold_cmd =
    command("show ctc encryption-timing-threshold", show_encryption_timing_threshold,
            "Show settings and state\n"
            "Management of ONUs by the CTC extension of OAM\n"
            "When an encryption counts as failed\n");

static constinit cmd_element encryption_key_update_time_set_cmd =
    command("ctc encryption-update-key olt-id OLT_DEVICE_INDEX onu-id ONU_INDEX update-key-timeout <0-255000> "
            "re-transmit-timeout <0-255000>",
            encryption_key_update_time_set,
            "Management of ONUs by the CTC extension of OAM\n"
            "Keys of one ONU\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "An ONU of the OLT\n"
            "Index of the ONU, 0-254, decimal or with 0x hexadecimal; or its MAC address, six hexadecimal fields\n"
            "How long a key is used\n"
            "Time, milliseconds, 0-255000; 0: a key is never changed\n"
            "How long the stack waits until it asks for the key again\n"
            "Time, milliseconds, 0-255000\n");

static constinit cmd_element encryption_key_update_time_set_onu_cmd =
    command("ctc encryption-onu-timing update-key-timeout <0-255000> re-transmit-timeout <0-255000>",
            encryption_key_update_time_set,
            "Management of ONUs by the CTC extension of OAM\n"
            "Keys of this ONU\n"
            "How long a key is used\n"
            "Time, milliseconds, 0-255000; 0: a key is never changed\n"
            "How long the stack waits until it asks for the key again\n"
            "Time, milliseconds, 0-255000\n");

static constinit cmd_element show_encryption_key_update_time_cmd = command(
    "show ctc encryption-key-update-time olt-id OLT_DEVICE_INDEX onu-id ONU_INDEX", show_encryption_key_update_time,
    "Show settings and state\n"
    "Management of ONUs by the CTC extension of OAM\n"
    "How often the keys of one ONU change\n"
    "An OLT\n"
    "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
    "An ONU of the OLT\n"
    "Index of the ONU, 0-254, decimal or with 0x hexadecimal; or its MAC address, six hexadecimal fields\n");

static constinit cmd_element show_encryption_key_update_time_onu_cmd =
    command("show ctc encryption-key-update-time", show_encryption_key_update_time,
            "Show settings and state\n"
            "Management of ONUs by the CTC extension of OAM\n"
            "How often the keys of one ONU change\n");

static constinit cmd_element ctc_start_encryption_cmd =
    command("ctc start-encryption", ctc_start_encryption,
            "Management of ONUs by the CTC extension of OAM\n"
            "Encrypt the downlink of this ONU with keys that the ONU makes; an event tells the result\n");

static constinit cmd_element ctc_stop_encryption_cmd = command("ctc stop-encryption", ctc_stop_encryption,
                                                               "Management of ONUs by the CTC extension of OAM\n"
                                                               "Send the downlink of this ONU in the clear\n");

static constinit cmd_element ctc_stop_encryption_no_cmd = command("no ctc encryption", ctc_stop_encryption,
                                                                  "Turn a setting off, or take an object away\n"
                                                                  "Management of ONUs by the CTC extension of OAM\n"
                                                                  "Send the downlink of this ONU in the clear\n");

namespace epon {

void install_ctc_encryption()
{
    install({{&encryption_timing_cmd, in(CONFIG_NODE)},
             {&show_encryption_timing_cmd, SHOW_NODES},
             {&encryption_timing_threshold_cmd, in(CONFIG_NODE)},
             {&show_encryption_timing_threshold_cmd, SHOW_NODES},
             {&encryption_key_update_time_set_cmd, in(CONFIG_NODE)},
             {&encryption_key_update_time_set_onu_cmd, in(ONU_NODE)},
             {&show_encryption_key_update_time_cmd, in(CONFIG_NODE)},
             {&show_encryption_key_update_time_onu_cmd, in(ONU_NODE)},
             {&ctc_start_encryption_cmd, in(ONU_NODE)},
             {&ctc_stop_encryption_cmd, in(ONU_NODE)},
             {&ctc_stop_encryption_no_cmd, in(ONU_NODE)}});
}

} // namespace epon
