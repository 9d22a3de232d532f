// SPDX-License-Identifier: Apache-2.0
#include <cstring>

#include "links_fixture.h"
#include "olt/onu.h"

namespace {

std::string answers;

void keep_answer(const char* text)
{
    answers += std::string(text) + "\n";
}

class ConnectCli : public Links {
  protected:
    ~ConnectCli() override
    {
        sdk_sim::stop();
        sdk_sim::set_firmware_console(nullptr);
    }

    // What the ONU answers to a line.
    std::string ask(const char* line)
    {
        answers.clear();
        EXPECT_EQ(type(line), "");
        sdk_sim::drain_events();
        return answers;
    }
};

TEST_F(ConnectCli, LinesGoToTheOnuUntilTheNodeIsLeft)
{
    for (const uint8_t before : {0, 1}) {
        enter_onu(5);
        session->event_notify = before;
        EXPECT_EQ(type("connect_cli"), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(session->node, ONU_CLI_NODE);
        EXPECT_EQ(session->event_notify, 1);
        EXPECT_EQ(session->event_notify_saved, before);
        EXPECT_EQ(engine::prompt(session), "LAB(OLT0 ONU 5 CLI)# ");
        EXPECT_EQ(journal(), Calls{"NEP_send_onu_cli_command(0, 5, 1, \"\\n\") = 0"});
        type("version  1");
        EXPECT_EQ(journal(), Calls{"NEP_send_onu_cli_command(0, 5, 1, \"version  1\\n\") = 0"});
        EXPECT_EQ(session->node, ONU_CLI_NODE);
        type("exit");
        EXPECT_EQ(session->node, ONU_NODE);
        EXPECT_EQ(session->event_notify, before);
        EXPECT_EQ(journal(), Calls{});
    }
}

TEST_F(ConnectCli, ByAddress)
{
    enter_onu(77);
    session->onu_by_index = 0;
    strcpy(session->onu_mac, "02-00-00-00-00-05");
    EXPECT_EQ(type("connect_cli"), "");
    EXPECT_EQ(journal(), (Calls{"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5",
                                "NEP_send_onu_cli_command(0, 5, 1, \"\\n\") = 0"}));
    EXPECT_EQ(engine::prompt(session), "LAB(OLT0 ONU 02-00-00-00-00-05 CLI)# ");
    EXPECT_STREQ(session->onu_mac, "02-00-00-00-00-05");
    type("help");
    EXPECT_EQ(journal(), Calls{"NEP_send_onu_cli_command(0, 5, 1, \"help\\n\") = 0"});
}

TEST_F(ConnectCli, RefusalsStayInTheOnuNode)
{
    struct Case {
        int16_t olt_id, onu_id;
        int16_t fault;
        const char* line;
        int result;
    };
    const Case cases[] = {
        {0, 6, 0, NO_ONU, -1007}, {0, 0, 0, NO_ONU, -1007}, {1, 5, 0, NO_OLT, -1003}, {0, 5, -5, HARDWARE, -5}};
    for (const Case& test : cases) {
        enter_onu(test.onu_id, ONU_NODE, test.olt_id);
        session->event_notify = 0;
        session->event_notify_saved = 9;
        if (test.fault != 0) inject("NEP_send_onu_cli_command", test.fault);
        EXPECT_EQ(type("connect_cli"), test.line);
        EXPECT_EQ(result, test.result);
        EXPECT_EQ(session->node, ONU_NODE);
        EXPECT_EQ(session->event_notify, 0);
        EXPECT_EQ(session->event_notify_saved, 9);
    }
    enter_onu(5);
    session->onu_by_index = 0;
    strcpy(session->onu_mac, "02-00-00-00-00-77");
    EXPECT_EQ(type("connect_cli"), "There is no 02-00-00-00-00-77 mac address in the system\r\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(session->node, ONU_NODE);
}

TEST_F(ConnectCli, AnOnuThatCannotBeReachedIsReported)
{
    enter_onu(5);
    EXPECT_EQ(type("connect_cli"), "");
    inject("NEP_send_onu_cli_command", -5);
    EXPECT_EQ(type("version"), HARDWARE);
    EXPECT_EQ(result, -5);
    EXPECT_EQ(session->node, ONU_CLI_NODE);
}

TEST_F(ConnectCli, TheOnuAnswers)
{
    sdk_sim::set_firmware_console(keep_answer);
    sdk_sim::start();
    enter_onu(5);
    EXPECT_EQ(ask("connect_cli"), "onu5> \n");
    EXPECT_EQ(ask("version"), "factory image\n");
    EXPECT_EQ(ask("link"), "authorized, rtt 1000\noam up, 0 frames received\nfec off\n");
    EXPECT_EQ(ask("loopback"), "open\n");
    EXPECT_EQ(ask("reboot now"), "unknown command, try help\n");
    EXPECT_EQ(ask("help").find("help       this list\nversion    of the firmware\n"), 0u);
    EXPECT_EQ(ask("identity"), "mac     02-00-00-00-00-05\nname    \nserial  \n");
    // What is done to the ONU shows there.
    const uint8_t image[] = {'1', '2', '3', '4', '5', '6', '7', '8', '9'};
    const uint8_t frame[OAM_FRAME_MIN_SIZE] = {};
    EXPECT_EQ(NEP_download_onu_firmware(0, 5, image, sizeof image), 0);
    EXPECT_EQ(NEP_send_oam(0, 5, frame, sizeof frame), 0);
    EXPECT_EQ(NEP_set_llid_fec_mode(0, 5, LLID_FEC_DOWNLINK), 0);
    EXPECT_EQ(NEP_set_standard_onu_loopback(0, 5, 1), 0);
    EXPECT_EQ(ask("loopback"), "closed by oam\n");
    sdk_sim::advance_clock(2000);
    EXPECT_EQ(ask(" version\t"), "loaded image, 9 octets, checksum 0xcbf43926\n");
    EXPECT_EQ(ask("link"), "authorized, rtt 1000\noam up, 1 frames received\nfec downlink\n");
}

} // namespace
