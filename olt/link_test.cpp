// SPDX-License-Identifier: Apache-2.0
// Test of a link: frames that the ONU sends back. The event link-test-completed tells the result.
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/llid.h"

using namespace epon;

namespace {

constexpr NumberRule number_of_frames = unsigned_range("number_of_frames", 1, 32766);
constexpr NumberRule frame_size = unsigned_range("size", 56, 1514);
constexpr NumberRule continuous_frame_size = unsigned_range("size", 60, 1514);

// The tag of the test frames; "vlan disable" brings no words.
struct Tag {
    int32_t vlan = 0;
    int32_t priority = 0;
    int32_t tag = 0;
};

// The two words of "vlan enable", the last ones of its forms.
bool read_tag(vty* session, char** words, Tag* tag)
{
    tag->vlan = 1;
    return read_number(session, words[0], unsigned_range("vlan_priority", 0, 7), &tag->priority) &&
           read_number(session, words[1], unsigned_range("vlan_tag", 0, 4094), &tag->tag);
}

int run(vty* session, int32_t frames, int32_t size, int32_t delay_measurement, const Tag& tag)
{
    return report(session, NEP_link_test(session->olt_id, session->llid, frames, size, delay_measurement, tag.vlan,
                                         tag.priority, tag.tag));
}

bool read_delay_measurement(vty* session, const char* text, int32_t* delay_measurement)
{
    return read_word(session, text, "delay_measurement", enable_disable, delay_measurement);
}

} // namespace

int link_test_num_of_frames(cmd_element*, vty* session, int argc, char** argv)
{
    int32_t frames;
    int32_t size;
    int32_t delay_measurement;
    Tag tag;
    if (!read_number(session, argv[0], number_of_frames, &frames)) return -1;
    if (!read_number(session, argv[1], frame_size, &size)) return -1;
    if (!read_delay_measurement(session, argv[2], &delay_measurement)) return -1;
    if (argc == 5 && !read_tag(session, argv + 3, &tag)) return -1;
    return run(session, frames, size, delay_measurement, tag);
}

int link_test_cont(cmd_element*, vty* session, int argc, char** argv)
{
    int32_t size;
    Tag tag;
    if (!read_number(session, argv[0], continuous_frame_size, &size)) return -1;
    if (argc == 3 && !read_tag(session, argv + 1, &tag)) return -1;
    return run(session, LINK_TEST_CONTINUOUS, size, 0, tag); // whether delays are told is said when it is stopped
}

int no_link_test(cmd_element*, vty* session, int, char** argv)
{
    int32_t delay_measurement;
    if (!read_delay_measurement(session, argv[0], &delay_measurement)) return -1;
    return run(session, LINK_TEST_STOP, 0, delay_measurement, {});
}

// The blanks and the tab before "vlan" belong to the command's text.
static constinit cmd_element link_test_num_of_frames_vlan_cmd =
    command("test link-test number-of-frames <1-32766> size <56-1514> delay-measurement (disable|enable) \t   vlan "
            "enable vlan-priority <0-7> vlan-tag <0-4094>",
            link_test_num_of_frames,
            "Run a test\n"
            "Send frames that the ONU of this link sends back\n"
            "A number of frames, then the result\n"
            "Number of frames, 1-32766\n"
            "How long each frame is\n"
            "Octets, 56-1514\n"
            "Whether the result tells how long the frames were under way\n"
            "disable: without the delay; enable: with the delay, in time quanta of 16 ns\n"
            "Whether the frames carry a VLAN tag\n"
            "With a VLAN tag\n"
            "Priority of the tag\n"
            "Priority, 0-7\n"
            "VLAN of the tag\n"
            "VLAN, 0-4094\n");

static constinit cmd_element link_test_num_of_frames_cmd =
    command("test link-test number-of-frames <1-32766> size <56-1514> delay-measurement (disable|enable) vlan disable",
            link_test_num_of_frames,
            "Run a test\n"
            "Send frames that the ONU of this link sends back\n"
            "A number of frames, then the result\n"
            "Number of frames, 1-32766\n"
            "How long each frame is\n"
            "Octets, 56-1514\n"
            "Whether the result tells how long the frames were under way\n"
            "disable: without the delay; enable: with the delay, in time quanta of 16 ns\n"
            "Whether the frames carry a VLAN tag\n"
            "Without a VLAN tag\n");

static constinit cmd_element link_test_cont_vlan_cmd = command(
    "test link-test continuous size <60-1514> vlan enable vlan-priority <0-7> vlan-tag <0-4094>", link_test_cont,
    "Run a test\n"
    "Send frames that the ONU of this link sends back\n"
    "Frame after frame, until the test is stopped\n"
    "How long each frame is\n"
    "Octets, 60-1514\n"
    "Whether the frames carry a VLAN tag\n"
    "With a VLAN tag\n"
    "Priority of the tag\n"
    "Priority, 0-7\n"
    "VLAN of the tag\n"
    "VLAN, 0-4094\n");

static constinit cmd_element link_test_cont_cmd =
    command("test link-test continuous size <60-1514> vlan disable", link_test_cont,
            "Run a test\n"
            "Send frames that the ONU of this link sends back\n"
            "Frame after frame, until the test is stopped\n"
            "How long each frame is\n"
            "Octets, 60-1514\n"
            "Whether the frames carry a VLAN tag\n"
            "Without a VLAN tag\n");

static constinit cmd_element no_link_test_cmd =
    command("no link-test delay-measurement (disable|enable)", no_link_test,
            "Turn a setting off, or take an object away\n"
            "The test that runs on this link\n"
            "Whether the result tells how long the frames were under way\n"
            "disable: without the delay; enable: with the delay, in time quanta of 16 ns\n");

namespace epon {

void install_link_test()
{
    install({{&link_test_num_of_frames_vlan_cmd, in(LLID_NODE)},
             {&link_test_num_of_frames_cmd, in(LLID_NODE)},
             {&link_test_cont_vlan_cmd, in(LLID_NODE)},
             {&link_test_cont_cmd, in(LLID_NODE)},
             {&no_link_test_cmd, in(LLID_NODE)}});
}

} // namespace epon
