// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "CLI_GENERAL/onu_show.h"

using namespace epon;

namespace {

int do_nothing(cmd_element*, vty*, int, char**)
{
    return 0;
}

constinit OnuShow key_cmd = remote_show<"mac encryption-key", "Link\nKey\n", "index <0-1>", "Which\n0-1\n">(do_nothing);
constinit OnuShow serial_cmd = ctc_show<"serial-number", "Serial\n">(do_nothing);
constinit OnuShow mode_cmd = remote_show_by_index<"oam-api encryption-mode", "Settings\nMode\n">(do_nothing);

TEST(OnuShow, RemoteFormsWithWordsOfTheirOwn)
{
    EXPECT_STREQ(key_cmd.by_index.string, "show onu remote mac encryption-key OLT_INDEX ONU_INDEX index <0-1>");
    EXPECT_STREQ(key_cmd.by_index.doc, "Show settings and state\n"
                                       "One ONU\n"
                                       "Remote management: the ONU is asked by OAM\n"
                                       "Link\nKey\n"
                                       "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
                                       "Index of the ONU, 0-254, decimal or with 0x hexadecimal\n"
                                       "Which\n0-1\n");
    EXPECT_STREQ(key_cmd.by_mac.string,
                 "show onu remote mac encryption-key OLT_INDEX onu-mac-address AA-BB-CC-DD-EE-FF index <0-1>");
    EXPECT_STREQ(key_cmd.by_mac.doc, "Show settings and state\n"
                                     "One ONU\n"
                                     "Remote management: the ONU is asked by OAM\n"
                                     "Link\nKey\n"
                                     "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
                                     "Name the ONU by its MAC address\n"
                                     "MAC address of the ONU, six hexadecimal fields\n"
                                     "Which\n0-1\n");
    EXPECT_STREQ(key_cmd.in_onu_node.string, "show remote mac encryption-key index <0-1>");
    EXPECT_STREQ(key_cmd.in_onu_node.doc, "Show settings and state\n"
                                          "Remote management: the ONU is asked by OAM\n"
                                          "Link\nKey\n"
                                          "Which\n0-1\n");
    for (const cmd_element* form : {&key_cmd.by_index, &key_cmd.by_mac, &key_cmd.in_onu_node})
        EXPECT_EQ(form->func, do_nothing);
}

TEST(OnuShow, CtcFormsWithoutWordsOfTheirOwn)
{
    EXPECT_STREQ(serial_cmd.by_index.string, "show ctc onu serial-number OLT_INDEX ONU_INDEX");
    EXPECT_STREQ(serial_cmd.by_mac.string, "show ctc onu serial-number OLT_INDEX onu-mac-address AA-BB-CC-DD-EE-FF");
    EXPECT_STREQ(serial_cmd.in_onu_node.string, "show ctc serial-number");
    EXPECT_STREQ(serial_cmd.in_onu_node.doc, "Show settings and state\n"
                                             "Management of ONUs by the CTC extension of OAM\n"
                                             "Serial\n");
}

TEST(OnuShow, FormsByIndexAlone)
{
    EXPECT_STREQ(mode_cmd.by_index.string, "show onu remote oam-api encryption-mode OLT_INDEX ONU_INDEX");
    EXPECT_EQ(mode_cmd.by_mac.string, nullptr);
    EXPECT_STREQ(mode_cmd.in_onu_node.string, "show remote oam-api encryption-mode");
}

} // namespace
