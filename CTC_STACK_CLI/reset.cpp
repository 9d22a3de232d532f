// SPDX-License-Identifier: Apache-2.0
// Starting an ONU anew, or one of its cards.
#include "CTC_STACK_CLI/reset.h"

#include <cstring>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CTC_STACK_CLI/onu_report.h"

using namespace epon;

namespace {

bool read_card(vty* session, const char* text, uint8_t* card)
{
    if (strcmp(text, "all-cards") != 0)
        return read_number(session, text, unsigned_range("card_number", 0, UINT8_MAX), card);
    *card = CTC_ALL_CARDS;
    return true;
}

} // namespace

int onu_reset(cmd_element*, vty* session, int, char**)
{
    OnuTarget onu;
    int result;
    if (!read_session_target(session, &onu, &result)) return result;
    return report_ctc(session, CTC_STACK_reset_onu(onu.olt_id, onu.onu_id));
}

int card_reset(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    uint8_t frame;
    uint8_t card;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_number(session, argv[0], unsigned_range("frame_number", 0, UINT8_MAX), &frame)) return -1;
    if (!read_card(session, argv[1], &card)) return -1;
    return report_ctc(session, CTC_STACK_reset_card(onu.olt_id, onu.onu_id, frame, card));
}

static constinit cmd_element onu_reset_cmd =
    command("ctc reset", onu_reset,
            "Management of ONUs by the CTC extension of OAM\n"
            "Have the ONU start anew; it leaves and registers again, and its service is interrupted\n");

static constinit cmd_element card_reset_cmd =
    command("ctc reset-card frame-number <0-3> card-number (all-cards|<0-62>)", card_reset,
            "Management of ONUs by the CTC extension of OAM\n"
            "Have a card of the ONU start anew; the ONU itself stays\n"
            "Frame (shelf) that the card is in\n"
            "Number of the frame, 0-3\n"
            "Slot that the card is in\n"
            "all-cards: every card of the frame; <0-62>: number of the slot\n");

namespace epon {

void install_ctc_reset()
{
    install({{&onu_reset_cmd, in(ONU_NODE)}, {&card_reset_cmd, in(ONU_NODE)}});
}

} // namespace epon
