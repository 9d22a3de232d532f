// SPDX-License-Identifier: Apache-2.0
// How many OAM frames a link may carry in a second.
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/link.h"
#include "olt/llid.h"

using namespace epon;

namespace {

constexpr Word rate_words[] = {
    {"10-frames", 10},   {"20-frames", 20},   {"30-frames", 30},
    {"40-frames", 40},   {"50-frames", 50},   {"60-frames", 60},
    {"70-frames", 70},   {"80-frames", 80},   {"90-frames", 90},
    {"100-frames", 100}, {"110-frames", 110}, {"120-frames", 120},
    {"130-frames", 130}, {"140-frames", 140}, {"150-frames", 150},
    {"160-frames", 160}, {"170-frames", 170}, {"180-frames", 180},
    {"190-frames", 190}, {"200-frames", 200}, {"unlimited", OAM_FRAME_RATE_UNLIMITED},
};
constexpr WordTable shown_rates = {"oam_frame_rate", rate_words};
// "unlimited" is no word of the setting command; the limit is taken away by a command of its own.
constexpr WordTable rates = {"oam_frame_rate", std::span<const Word>(rate_words).first<std::size(rate_words) - 1>()};

// The link of a form, taken from as many words in front of the value: OLT and link, link, or neither.
bool read_target(vty* session, int words, char** argv, int16_t* olt_id, int16_t* llid)
{
    *olt_id = session->olt_id;
    *llid = session->llid;
    if (words == 2 && !read_olt_id(session, *argv++, olt_id)) return false;
    return words == 0 || read_llid(session, *argv, llid);
}

// A link that its context would refuse is refused here, too, in the same words. A warning matters to the context only.
bool find_target(vty* session, int16_t olt_id, int16_t llid, int* result)
{
    bool is_warned;
    return find_link(session, llid_terms, olt_id, llid, &is_warned, result);
}

int set_rate(vty* session, int16_t olt_id, int16_t llid, int32_t frames)
{
    int result;
    if (!find_target(session, olt_id, llid, &result)) return result;
    return report(session, NEP_set_oam_frame_rate(olt_id, llid, frames));
}

} // namespace

int set_oam_frame_rate(cmd_element*, vty* session, int argc, char** argv)
{
    int16_t olt_id;
    int16_t llid;
    int32_t frames;
    if (!read_target(session, argc - 1, argv, &olt_id, &llid)) return -1;
    if (!read_word(session, argv[argc - 1], "rate", rates, &frames)) return -1;
    return set_rate(session, olt_id, llid, frames);
}

int no_oam_frame_rate(cmd_element*, vty* session, int argc, char** argv)
{
    int16_t olt_id;
    int16_t llid;
    if (!read_target(session, argc, argv, &olt_id, &llid)) return -1;
    return set_rate(session, olt_id, llid, OAM_FRAME_RATE_UNLIMITED);
}

int show_oam_frame_rate(cmd_element*, vty* session, int argc, char** argv)
{
    int16_t olt_id;
    int16_t llid;
    int result;
    if (!read_target(session, argc, argv, &olt_id, &llid)) return -1;
    if (!find_target(session, olt_id, llid, &result)) return result;
    int32_t frames = OAM_FRAME_RATE_UNLIMITED;
    const int16_t code = NEP_get_oam_frame_rate(olt_id, llid, &frames);
    return show_link_value(session, olt_id, code, "oam frame rate", shown_rates, frames);
}

static constinit cmd_element set_oam_frame_rate_by_index_cmd =
    command("set oam-frame-rate LLID_INDEX rate (10-frames|20-frames|30-frames|40-frames|50-frames|60-frames|"
            "70-frames|80-frames|90-frames|100-frames|110-frames|120-frames|130-frames|140-frames|150-frames|"
            "160-frames|170-frames|180-frames|190-frames|200-frames)",
            set_oam_frame_rate,
            "Change a setting\n"
            "OAM frames that a link may carry\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n"
            "The limit\n"
            "Frames in a second\n");

static constinit cmd_element set_oam_frame_rate_cmd =
    command("set oam-frame-rate rate (10-frames|20-frames|30-frames|40-frames|50-frames|60-frames|"
            "70-frames|80-frames|90-frames|100-frames|110-frames|120-frames|130-frames|140-frames|150-frames|"
            "160-frames|170-frames|180-frames|190-frames|200-frames)",
            set_oam_frame_rate,
            "Change a setting\n"
            "OAM frames that a link may carry\n"
            "The limit\n"
            "Frames in a second\n");

static constinit cmd_element no_oam_frame_rate_by_index_cmd =
    command("no oam-frame-rate-limit LLID_INDEX", no_oam_frame_rate,
            "Turn a setting off, or take an object away\n"
            "Limit of the OAM frames that a link may carry\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element no_oam_frame_rate_cmd = command("no oam-frame-rate-limit", no_oam_frame_rate,
                                                             "Turn a setting off, or take an object away\n"
                                                             "Limit of the OAM frames that a link may carry\n");

static constinit cmd_element show_oam_frame_rate_global_cmd =
    command("show olt oam-frame-rate OLT_INDEX LLID_INDEX", show_oam_frame_rate,
            "Show settings and state\n"
            "An OLT\n"
            "OAM frames that a link may carry\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_oam_frame_rate_by_index_cmd =
    command("show oam-frame-rate LLID_INDEX", show_oam_frame_rate,
            "Show settings and state\n"
            "OAM frames that a link may carry\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_oam_frame_rate_cmd = command("show oam-frame-rate", show_oam_frame_rate,
                                                               "Show settings and state\n"
                                                               "OAM frames that a link may carry\n");

namespace epon {

void install_oam_frame_rate()
{
    install({{&set_oam_frame_rate_by_index_cmd, in(OLT_NODE)},
             {&set_oam_frame_rate_cmd, in(LLID_NODE)},
             {&no_oam_frame_rate_by_index_cmd, in(OLT_NODE)},
             {&no_oam_frame_rate_cmd, in(LLID_NODE)},
             {&show_oam_frame_rate_global_cmd, SHOW_NODES},
             {&show_oam_frame_rate_by_index_cmd, in(OLT_NODE)},
             {&show_oam_frame_rate_cmd, in(LLID_NODE)}});
}

} // namespace epon
