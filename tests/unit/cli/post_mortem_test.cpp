// SPDX-License-Identifier: Apache-2.0
#include "olt/post_mortem.h"

#include "console_fixture.h"

namespace {

using Calls = std::vector<std::string>;

constexpr const char* READ_ERROR = "Error reading OLT_id parameter for command from input, aborting\r\n";

class PostMortem : public Console {
  protected:
    void load_firmware(const std::string& firmware)
    {
        load("[clock]\nspeed = 0\n\n[[olt]]\nid = 0\nmac = \"00-0a-c4-00-00-01\"\n\n"
             "[olt.device]\nfirmware_version = \"4.1.12.3\"\n\n[olt.firmware]\n" +
             firmware);
    }
};

TEST_F(PostMortem, LineByLine)
{
    load_firmware(
        "registers = [[0x1000, 0x5400], [0x2000, 0x1f]]\nlog = [\"boot: image 4.1.12.3\", \"\", \"pon: laser on\"]\n");
    sdk_sim::advance_clock(61000);
    const std::string report = "OLT_id: 0 \r\n"
                               "post-mortem of fw0\r\n"
                               "firmware: 4.1.12.3\r\n"
                               "uptime: 61 s\r\n"
                               "register 0x1000: 0x5400\r\n"
                               "register 0x2000: 0x1f\r\n"
                               "boot: image 4.1.12.3\r\n"
                               "\r\n"
                               "pon: laser on\r\n";
    EXPECT_EQ(type("show post-mortem 0"), report);
    EXPECT_EQ(result, 0);
    enter(OLT_NODE);
    EXPECT_EQ(type("show post-mortem"), report);
    EXPECT_EQ(result, 0);
    const std::string call = "NEP_get_post_mortem(0) = 0 -> \"post-mortem of fw0\\nfirmware: 4.1.12.3\\nuptime: 61 s\\n"
                             "register 0x1000: 0x5400\\nregister 0x2000: 0x1f\\nboot: image 4.1.12.3\\n\\n"
                             "pon: laser on\\n\"";
    EXPECT_EQ(journal(), (Calls{call, call}));
}

TEST_F(PostMortem, WhatTheFirmwareSaysIsCleaned)
{
    load_firmware(
        "log = [\"\\u001b[2Jgone\", \"%s%n\\ttab\", \"with cr\\r\", \"\\r\\r\", [255, 7, 65], \"two\\nlines\"]\n");
    const std::string text = type("show post-mortem 0");
    EXPECT_EQ(text.substr(text.find("uptime: 0 s\r\n")),
              "uptime: 0 s\r\n?[2Jgone\r\n%s%n?tab\r\nwith cr\r\n?\r\n??A\r\ntwo\r\nlines\r\n");
}

TEST_F(PostMortem, ALongReportIsCut)
{
    load_firmware("log = [\"" + std::string(5000, 'x') + "\"]\n");
    const std::string text = type("show post-mortem 0");
    const std::string head = "post-mortem of fw0\nfirmware: 4.1.12.3\nuptime: 0 s\n";
    EXPECT_EQ(text.substr(text.find('x')), std::string(POST_MORTEM_TEXT_SIZE - 1 - head.size(), 'x') + "\r\n");
}

TEST_F(PostMortem, FailuresAreReported)
{
    EXPECT_EQ(type("show post-mortem x"), READ_ERROR);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
    inject("NEP_get_post_mortem", -1004);
    EXPECT_EQ(type("show post-mortem 0"), "Command return error.\r\nquery failed (error code : -1004)\r\n");
    EXPECT_EQ(result, -1004);
    EXPECT_EQ(type("show post-mortem 1"), "Command return error.\r\nOLT not exist (error code : -1003)\r\n");
    EXPECT_EQ(result, -1003);
    enter(OLT_NODE, 1);
    EXPECT_EQ(type("show post-mortem"), "Command return error.\r\nOLT not exist (error code : -1003)\r\n");
    EXPECT_EQ(journal(), (Calls{"NEP_get_post_mortem(0) = -1004", "NEP_get_post_mortem(1) = -1003",
                                "NEP_get_post_mortem(1) = -1003"}));
}

} // namespace
