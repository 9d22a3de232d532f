// SPDX-License-Identifier: Apache-2.0
#include "CTC_STACK_CLI/encryption.h"

#include "ctc_stack_fixture.h"
#include "event_lines.h"

namespace {

class CtcEncryption : public ExtendedOam {
  protected:
    // Events of the stack and of OLTs, on a session of their own.
    class StackEvents : public EventLines {
      public:
        StackEvents()
        {
            CLI_ctc_init();
            after(); // it tells of its success
            sdk_sim::take_journal();
        }
    };

    static std::string direction(const char* word, int onu = 5)
    {
        return "encryption-changed: olt 0, llid " + std::to_string(onu) + ", direction " + word + " \r\n";
    }
    static std::string key(int index, int onu = 5)
    {
        return "encryption-key-updated: olt 0, llid " + std::to_string(onu) + ", key-index " + std::to_string(index) +
               " \r\nCOMPLETE ENCRYPTION\n";
    }
};

// --- Timing of one ONU -------------------------------------------------------------------------------------------

TEST_F(CtcEncryption, TimingOfAnOnu)
{
    EXPECT_EQ(type("show ctc encryption-key-update-time olt-id 0 onu-id 5"),
              std::string(ONU_5) + "update_key_timeout: 10000 \r\nre_transmit_timeout: 300 \r\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_get_encryption_update_time(0, 5) = 0 -> 10000, 300"});
    EXPECT_EQ(type("ctc encryption-update-key olt-id 0x0 onu-id 0x5 update-key-timeout 255000 re-transmit-timeout 0"),
              "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_encryption_update_time(0, 5, 255000, 0) = 0"});
    EXPECT_EQ(type("show ctc encryption-key-update-time olt-id 0 onu-id 5"),
              std::string(ONU_5) + "update_key_timeout: 255000 \r\nre_transmit_timeout: 0 \r\n");
    enter_onu(5);
    EXPECT_EQ(type("ctc encryption-onu-timing update-key-timeout 0 re-transmit-timeout 255000"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(type("show ctc encryption-key-update-time"),
              std::string(ONU_5) + "update_key_timeout: 0 \r\nre_transmit_timeout: 255000 \r\n");
    EXPECT_EQ(result, 0);
}

TEST_F(CtcEncryption, AnOnuWithoutATimingFollowsTheStack)
{
    type("ctc encryption-timing update-key-time 20 no-reply-timeout 700");
    EXPECT_EQ(type("show ctc encryption-key-update-time olt-id 0 onu-id 5"),
              std::string(ONU_5) + "update_key_timeout: 20000 \r\nre_transmit_timeout: 700 \r\n");
}

TEST_F(CtcEncryption, TimingByAddressAndOfAllOnus)
{
    EXPECT_EQ(type("ctc encryption-update-key olt-id 0 onu-id 02-00-00-00-00-05 update-key-timeout 1 "
                   "re-transmit-timeout 2"),
              "");
    EXPECT_EQ(journal(), (Calls{"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5",
                                "CTC_STACK_set_encryption_update_time(0, 5, 1, 2) = 0"}));
    EXPECT_EQ(type("ctc encryption-update-key olt-id 0 onu-id ff-ff-ff-ff-ff-ff update-key-timeout 3 "
                   "re-transmit-timeout 4"),
              "");
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_encryption_update_time(0, 4095, 3, 4) = 0"});
    for (const char* onu : {"5", "9", "12", "02-00-00-00-00-05"}) {
        const std::string shown = type(std::string("show ctc encryption-key-update-time olt-id 0 onu-id ") + onu);
        EXPECT_NE(shown.find("update_key_timeout: 3 \r\nre_transmit_timeout: 4 \r\n"), std::string::npos) << onu;
    }
    // Nobody answers for all.
    for (const char* onu : {"4095", "ff-ff-ff-ff-ff-ff"}) {
        EXPECT_EQ(type(std::string("show ctc encryption-key-update-time olt-id 0 onu-id ") + onu), NO_ONU);
        EXPECT_EQ(result, -17002);
    }
}

TEST_F(CtcEncryption, TimingRefusals)
{
    struct Case {
        std::vector<std::string> words;
        const char* message;
        int result;
    };
    const Case cases[] = {
        {{"x", "5", "1", "1"}, "Error reading OLT_id parameter for command from input, aborting\r\n", -1},
        {{"16", "5", "1", "1"}, "Error, OLT id (16) is out of bounds. OLT range: 0 - 15\n", -4},
        {{"0", "5x", "1", "1"}, "Error reading onu_index parameter for command from input, aborting\r\n", -1},
        {{"0", "02-00-00-00-00-055", "1", "1"}, "Error reading mac_address has wrong length, aborting\r\n", -1},
        {{"0", "5", "x", "1"}, "Error reading update_key_timeout parameter for command from input, aborting\r\n", -1},
        {{"0", "5", "-1", "1"},
         "Error reading negative value of update_key_timeout parameter from input, aborting\r\n",
         -1},
        {{"0", "5", "1", "y"}, "Error reading re_transmit_timeout parameter for command from input, aborting\r\n", -1},
        {{"0", "5", "1", "-2"},
         "Error reading negative value of re_transmit_timeout parameter from input, aborting\r\n",
         -1},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(call(encryption_key_update_time_set, test.words), test.message);
        EXPECT_EQ(result, test.result);
    }
    EXPECT_EQ(journal(), Calls{});
    EXPECT_EQ(call(encryption_key_update_time_set, {"0", "5", "255001", "0"}), BAD_PARAMETER);
    EXPECT_EQ(call(encryption_key_update_time_set, {"0", "5", "0", "0x3E419"}), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    EXPECT_EQ(call(encryption_key_update_time_set, {"0", "5", "0x3E418", "0"}), "");
}

TEST_F(CtcEncryption, TimingOfTheStackBehindTheGrammar)
{
    struct Case {
        std::vector<std::string> words;
        const char* message;
    };
    const Case cases[] = {
        {{"256", "0"},
         "Error in range of update_key_time parameter for command from input min:0 max:255, aborting\r\n"},
        {{"x", "0"}, "Error reading update_key_time parameter for command from input, aborting\r\n"},
        {{"0", "65536"},
         "Error in range of no_reply_timeout parameter for command from input min:0 max:65535, aborting\r\n"},
        {{"0", "-1"}, "Error reading negative value of no_reply_timeout parameter from input, aborting\r\n"},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(call(encryption_timing, test.words), test.message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(call(encryption_timing_threshold, {"256"}),
              "Error in range of start_encryption_threshold parameter for command from input min:0 max:255, "
              "aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
    EXPECT_EQ(call(encryption_timing, {"1", "2551"}), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
}

TEST_F(CtcEncryption, Failures)
{
    enter_onu(5);
    const std::pair<const char*, const char*> commands[] = {
        {"ctc encryption-onu-timing update-key-timeout 1 re-transmit-timeout 1",
         "CTC_STACK_set_encryption_update_time"},
        {"show ctc encryption-key-update-time", "CTC_STACK_get_encryption_update_time"},
        {"ctc start-encryption", "CTC_STACK_start_encryption"},
        {"ctc stop-encryption", "CTC_STACK_stop_encryption"},
        {"no ctc encryption", "CTC_STACK_stop_encryption"},
    };
    for (const auto& [line, operation] : commands) {
        expect_codes(line, operation);
        expect_absence(line);
    }
    enter(CONFIG_NODE);
    EXPECT_EQ(type("show ctc encryption-key-update-time olt-id 1 onu-id 5"), NO_OLT);
    EXPECT_EQ(type("show ctc encryption-key-update-time olt-id 0 onu-id 77"), NO_ONU);
    EXPECT_EQ(type("ctc encryption-update-key olt-id 15 onu-id 5 update-key-timeout 0 re-transmit-timeout 0"), NO_OLT);
}

// --- Start and stop ----------------------------------------------------------------------------------------------

TEST_F(CtcEncryption, StartAndStop)
{
    StackEvents events;
    enter_onu(5);
    EXPECT_EQ(type("ctc start-encryption"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_start_encryption(0, 5) = 0"});
    EXPECT_EQ(events.after(49), "");
    EXPECT_EQ(events.after(1), direction("downlink") + key(0));
    EXPECT_EQ(type("ctc start-encryption"), ""); // runs already
    EXPECT_EQ(events.after(9999), "");
    // The next key takes as long to come.
    EXPECT_EQ(events.after(51), key(1));
    EXPECT_EQ(events.after(10050), key(0));
    journal();
    EXPECT_EQ(type("ctc stop-encryption"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_stop_encryption(0, 5) = 0"});
    EXPECT_EQ(events.after(100000), direction("off"));
    EXPECT_EQ(type("no ctc encryption"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(events.after(100000), "");
}

TEST_F(CtcEncryption, ByAddress)
{
    enter_onu_by_mac("02-00-00-00-00-05");
    for (const char* line : {"ctc start-encryption", "ctc stop-encryption", "no ctc encryption"}) {
        EXPECT_EQ(type(line), "");
        EXPECT_EQ(journal().front(), "Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5");
    }
}

TEST_F(CtcEncryption, AStopBeforeTheFirstKeyLeavesNothing)
{
    StackEvents events;
    enter_onu(5);
    type("ctc start-encryption");
    type("no ctc encryption");
    EXPECT_EQ(events.after(100000), "");
    type("ctc start-encryption");
    EXPECT_EQ(events.after(50), direction("downlink") + key(0));
}

TEST_F(CtcEncryption, KeysFollowTheOnusOwnTiming)
{
    StackEvents events;
    enter_onu(5);
    type("ctc encryption-onu-timing update-key-timeout 1000 re-transmit-timeout 10");
    type("ctc start-encryption");
    EXPECT_EQ(events.after(50), direction("downlink") + key(0));
    EXPECT_EQ(events.after(1050), key(1));
    type("ctc encryption-onu-timing update-key-timeout 0 re-transmit-timeout 10"); // from the next key on
    EXPECT_EQ(events.after(1050), key(0));
    EXPECT_EQ(events.after(1000000), "");
}

TEST_F(CtcEncryption, AnOnuThatGivesNoKeyFails)
{
    StackEvents events;
    enter_onu(9);
    type("ctc start-encryption");
    EXPECT_EQ(events.after(899), "");
    EXPECT_EQ(events.after(1), "ENCRYPTION FAILED\n"); // three requests of 300 ms
    EXPECT_EQ(events.after(100000), "");
    enter(CONFIG_NODE);
    type("ctc encryption-timing-threshold start-encryption-threshold 0");
    type("ctc encryption-timing update-key-time 1 no-reply-timeout 700");
    enter_onu(9);
    type("ctc start-encryption"); // once more
    EXPECT_EQ(events.after(699), "");
    EXPECT_EQ(events.after(1), "ENCRYPTION FAILED\n");
    enter(CONFIG_NODE);
    type("ctc encryption-timing-threshold start-encryption-threshold 5");
    enter_onu(9);
    type("ctc encryption-onu-timing update-key-timeout 0 re-transmit-timeout 0"); // at once, nearly
    type("ctc start-encryption");
    EXPECT_EQ(events.after(4), "");
    EXPECT_EQ(events.after(1), "ENCRYPTION FAILED\n");
}

TEST_F(CtcEncryption, TheLinkShowsIt)
{
    sdk_sim::start();
    enter_onu(5);
    type("ctc start-encryption");
    sdk_sim::advance_clock(50);
    session->llid = 5;
    session->onu_by_index = 1;
    enter(LLID_NODE);
    EXPECT_EQ(type("show encryption"), "OLT_id: 0 \r\nencryption: downlink \r\n");
    EXPECT_EQ(type("encryption stop"), ""); // ended there, the stack asks for no more keys
    sdk_sim::advance_clock(100000);
    EXPECT_EQ(type("show encryption"), "OLT_id: 0 \r\nencryption: off \r\n");
    sdk_sim::stop();
}

TEST_F(CtcEncryption, AnOnuThatLeavesTakesItsEncryptionAlong)
{
    StackEvents events;
    enter_onu(5);
    type("ctc start-encryption");
    events.after(50);
    enter(OLT_NODE);
    type("onu deregister 5");
    const std::string lines = events.after(100000);
    EXPECT_NE(lines.find("onu-deregistered: olt 0, onu 5"), std::string::npos);
    EXPECT_EQ(lines.find("encryption"), std::string::npos);
    EXPECT_EQ(lines.find("ENCRYPTION"), std::string::npos);
}

TEST_F(CtcEncryption, AllOnusAtOnce)
{
    StackEvents events;
    EXPECT_EQ(CTC_STACK_start_encryption(0, 4095), 0);
    EXPECT_EQ(events.after(50), direction("downlink", 5) + key(0, 5) + direction("downlink", 12) + key(0, 12));
    EXPECT_EQ(events.after(850), "ENCRYPTION FAILED\n");
    EXPECT_EQ(CTC_STACK_stop_encryption(0, 4095), 0);
    EXPECT_EQ(events.after(), direction("off", 5) + direction("off", 12));
}

} // namespace
