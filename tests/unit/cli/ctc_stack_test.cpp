// SPDX-License-Identifier: Apache-2.0
// Start and stop of the CTC stack's commands, and what operators see of its events.
#include <cstring>

#include "ctc_stack_fixture.h"

namespace {

constexpr const char* ASSIGNED = "CTC STACK Handler functions assignment success\n";
constexpr const char* NOT_ASSIGNED = "CTC STACK Handler functions assignment failure\n";
constexpr const char* REMOVED = "CTC STACK Handler functions termination success\n";
constexpr const char* NOT_REMOVED = "CTC STACK Handler functions termination failure\n";
constexpr const char* HARDWARE_FAULT = "CTC_STACK_delete_handler_function";

class CtcStack : public ExtendedOam {
  protected:
    CtcStack()
    {
        session->event_notify = 1;
        sdk_sim::take_log();
    }
    std::string printed()
    {
        return engine::take_output(session);
    }
};

TEST_F(CtcStack, StartRegistersFiveHandlersInOrder)
{
    EXPECT_EQ(CLI_ctc_init(), 0);
    EXPECT_EQ(journal(),
              (Calls{"CTC_STACK_assign_handler_function(1) = 0 -> 1", "CTC_STACK_assign_handler_function(0) = 0 -> 2",
                     "CTC_STACK_assign_handler_function(2) = 0 -> 3", "CTC_STACK_assign_handler_function(3) = 0 -> 4",
                     "CTC_STACK_assign_handler_function(6) = 0 -> 5"}));
    EXPECT_EQ(printed(), ASSIGNED);
    EXPECT_EQ(sdk_sim::take_log(), Calls{"api-called|CTC_STACK_CLI/CTC_STACK_CLI|-1|-1|CLI_ctc_init API Called.\n"});
}

TEST_F(CtcStack, AFailingRegistrationEndsTheStartWhichStillReturnsZero)
{
    for (uint32_t passing = 0; passing < 5; ++passing) {
        inject("CTC_STACK_assign_handler_function", -5, 1, passing);
        EXPECT_EQ(CLI_ctc_init(), 0);
        EXPECT_EQ(journal().size(), passing + 1);
        EXPECT_EQ(printed(), NOT_ASSIGNED);
        CLI_ctc_terminate();
        printed();
        journal();
    }
}

TEST_F(CtcStack, StopRemovesTheHandlersByTheirIdsAndEndsTheStack)
{
    CLI_ctc_init();
    printed();
    journal();
    sdk_sim::take_log();
    EXPECT_EQ(CLI_ctc_terminate(), 0);
    EXPECT_EQ(journal(), (Calls{"CTC_STACK_delete_handler_function(1) = 0", "CTC_STACK_delete_handler_function(2) = 0",
                                "CTC_STACK_delete_handler_function(3) = 0", "CTC_STACK_delete_handler_function(4) = 0",
                                "CTC_STACK_delete_handler_function(5) = 0", "CTC_STACK_terminate() = 0"}));
    EXPECT_EQ(printed(), REMOVED);
    EXPECT_EQ(sdk_sim::take_log(),
              Calls{"api-called|CTC_STACK_CLI/CTC_STACK_CLI|-1|-1|CLI_ctc_terminate API Called.\n"});
    // There is nothing left to remove, and no stack to end.
    EXPECT_EQ(CLI_ctc_terminate(), -1);
    EXPECT_EQ(printed(), NOT_REMOVED);
}

TEST_F(CtcStack, AHandlerThatCannotBeRemovedDoesNotKeepTheOthers)
{
    CLI_ctc_init();
    printed();
    journal();
    inject(HARDWARE_FAULT, -5, 1, 1);
    EXPECT_EQ(CLI_ctc_terminate(), 0);
    EXPECT_EQ(journal().size(), 6u);
    EXPECT_EQ(printed(), NOT_REMOVED);
}

TEST_F(CtcStack, AStopThatFailsTellsItsCode)
{
    CLI_ctc_init();
    inject("CTC_STACK_terminate", -6);
    EXPECT_EQ(CLI_ctc_terminate(), -6);
}

TEST_F(CtcStack, ASecondStartFindsTheHandlersThere)
{
    CLI_ctc_init();
    printed();
    journal();
    EXPECT_EQ(CLI_ctc_init(), 0);
    EXPECT_EQ(printed(), NOT_ASSIGNED);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_assign_handler_function(1) = -17007"});
}

TEST_F(CtcStack, WithoutNotifiedSessionsTheMessagesGoNowhere)
{
    session->event_notify = 0;
    EXPECT_EQ(CLI_ctc_init(), 0);
    EXPECT_EQ(CLI_ctc_terminate(), 0);
    EXPECT_EQ(printed(), "");
    const vty* other = engine::open_memory_session();
    EXPECT_EQ(engine::take_output(const_cast<vty*>(other)), "");
    engine::close_session(const_cast<vty*>(other));
}

TEST_F(CtcStack, ThePackagesStartAndStopIt)
{
    EXPECT_EQ(init_packages(), 0);
    EXPECT_NE(printed().find(ASSIGNED), std::string::npos);
    journal();
    EXPECT_EQ(terminate_packages(), 0);
    EXPECT_EQ(printed(), REMOVED);
    EXPECT_EQ(journal().back(), "CTC_STACK_terminate() = 0");
}

// --- What the handlers print -------------------------------------------------------------------------------------

TEST_F(CtcStack, DiscoveryEvents)
{
    const CTC_oui_version records[] = {{{0x11, 0x11, 0x11}, 0x21}, {{0x00, 0x0a, 0xff}, 255}};
    Extended_oam_discovery_handler(0, 5, 3, 2, records);
    EXPECT_EQ(printed(), "Got ONU extended OAM event. OLT: 0, LLID: 5 state:DISCOVERY COMPLETE\n"
                         "record 0: oui 0x111111 version 33\n"
                         "record 1: oui 0x000aff version 255\n");
    Extended_oam_discovery_handler(15, -1, 2, 0, nullptr);
    EXPECT_EQ(printed(), "Got ONU extended OAM event. OLT: 15, LLID: -1 state:OAM DISCOVERY FAILED\n");
    Extended_oam_discovery_handler(0, 5, 2, 3, nullptr); // a count without records
    EXPECT_EQ(printed(), "Got ONU extended OAM event. OLT: 0, LLID: 5 state:OAM DISCOVERY FAILED\n");
    Extended_oam_discovery_handler(0, 5, 3, 0, records);
    EXPECT_EQ(printed(), "Got ONU extended OAM event. OLT: 0, LLID: 5 state:DISCOVERY COMPLETE\n");
}

TEST_F(CtcStack, AnotherDiscoveryStateHasNoText)
{
    const CTC_oui_version record = {{1, 2, 3}, 4};
    for (const int32_t state : {0, 1, 4, -1}) {
        Extended_oam_discovery_handler(0, 5, state, 1, &record);
        EXPECT_EQ(printed(), "Got ONU extended OAM event. OLT: 0, LLID: 5 state:record 0: oui 0x010203 version 4\n");
    }
}

TEST_F(CtcStack, AllRecordsOfADiscoveryArePrinted)
{
    std::vector<CTC_oui_version> records(255);
    for (CTC_oui_version& record : records)
        record = {{0xff, 0xff, 0xff}, 255};
    Extended_oam_discovery_handler(-32768, -32768, 2, 255, records.data());
    const std::string text = printed();
    EXPECT_TRUE(text.starts_with("Got ONU extended OAM event. OLT: -32768, LLID: -32768 state:OAM DISCOVERY FAILED\n"));
    EXPECT_TRUE(text.ends_with("record 254: oui 0xffffff version 255\n"));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 256);
}

TEST_F(CtcStack, EncryptionEventsNameTheLinkInTheLogOnly)
{
    Update_encryption_handler(0, 5, 1);
    EXPECT_EQ(printed(), "COMPLETE ENCRYPTION\n");
    EXPECT_EQ(sdk_sim::take_log(), Calls{"event-flow|CTC_STACK_CLI/CTC_STACK_CLI|0|5|Got ONU update encryption event. "
                                         "OLT: 0, LLID: 5 state:"});
    Update_encryption_handler(3, 254, 2);
    EXPECT_EQ(printed(), "ENCRYPTION FAILED\n");
    for (const int32_t state : {0, 3, -1}) {
        sdk_sim::take_log();
        Update_encryption_handler(0, 5, state);
        EXPECT_EQ(printed(), "");
        EXPECT_EQ(sdk_sim::take_log().size(), 1u);
    }
}

TEST_F(CtcStack, ErrorEvents)
{
    Update_onu_error_handler(0, 5, -17005, "cannot read x.img");
    EXPECT_EQ(printed(),
              "Got Update ONU error event. OLT: 0, ONU: 5. error code:-17005, error message:cannot read x.img\n");
    Update_onu_error_handler(0, 5, 7, "%s%n\x1b[2J\r\n");
    EXPECT_EQ(printed(), "Got Update ONU error event. OLT: 0, ONU: 5. error code:7, error message:%s%n?[2J??\n");
    Update_onu_error_handler(0, 5, 0, nullptr);
    EXPECT_EQ(printed(), "Got Update ONU error event. OLT: 0, ONU: 5. error code:0, error message:\n");
    Update_onu_error_handler(0, 5, INT32_MIN, std::string(5000, 'x').c_str());
    EXPECT_EQ(printed(), "Got Update ONU error event. OLT: 0, ONU: 5. error code:-2147483648, error message:" +
                             std::string(255, 'x') + "\n");
}

TEST_F(CtcStack, RequestEventsAreAnsweredWithTheFileOnDriveC)
{
    struct Case {
        std::string information;
        std::string file;
    };
    const Case cases[] = {{"onu.img version 7", "C:\\onu.img"},
                          {"onu.img", "C:\\onu.img"},
                          {"a/b\\c.img ", "C:\\a/b\\c.img"},
                          {"  led.bin x", "C:\\led.bin"},
                          {"%s%n", "C:\\%s%n"},
                          {"", "C:\\"},
                          {std::string(5000, 'x'), "C:\\" + std::string(CTC_FILE_NAME_SIZE - 4, 'x')}};
    for (const auto& [information, name] : cases) {
        uint8_t handled = 9;
        int16_t code = -1;
        CTC_update_file file;
        char* answer = Update_onu_request_handler(2, 5, information.c_str(), &handled, &file, &code);
        EXPECT_EQ(answer, file.name);
        EXPECT_EQ(answer, name);
        EXPECT_EQ(handled, 1);
        EXPECT_EQ(code, 0);
        EXPECT_EQ(printed(),
                  "Got ONU Update request event from OLT: 2, ONU: 5 information:" + information.substr(0, 255) + "\n");
    }
}

TEST_F(CtcStack, ARequestsTextIsHarmlessOnTheTerminal)
{
    uint8_t handled;
    int16_t code;
    CTC_update_file file;
    Update_onu_request_handler(2, 5, "a\x1b]0;x\x07 \xff", &handled, &file, &code);
    EXPECT_EQ(printed(), "Got ONU Update request event from OLT: 2, ONU: 5 information:a?]0;x? ?\n");
    Update_onu_request_handler(2, 5, nullptr, &handled, &file, &code);
    EXPECT_EQ(printed(), "Got ONU Update request event from OLT: 2, ONU: 5 information:\n");
    EXPECT_STREQ(file.name, "C:\\");
}

TEST_F(CtcStack, NotificationEvents)
{
    const CTC_management_object_index object = {0, 1, 2, CTC_PORT_ETHERNET};
    Event_notification_handler(0, 5, 1, &object, 1, 77, 0x302);
    EXPECT_EQ(printed(), "Got Event notification. OLT: 0, ONU: 5, leaf: 1, alarm id: 0x302\n");
    Event_notification_handler(-1, 4095, 0xffff, nullptr, 0, 0, 0xffff);
    EXPECT_EQ(printed(), "Got Event notification. OLT: -1, ONU: 4095, leaf: 65535, alarm id: 0xffff\n");
}

TEST_F(CtcStack, NobodyListens)
{
    session->event_notify = 0;
    CTC_update_file file;
    uint8_t handled;
    int16_t code;
    Extended_oam_discovery_handler(0, 5, 3, 0, nullptr);
    Update_encryption_handler(0, 5, 1);
    Update_onu_error_handler(0, 5, -1, "x");
    Update_onu_request_handler(0, 5, "x", &handled, &file, &code);
    Event_notification_handler(0, 5, 1, nullptr, 1, 0, 1);
    EXPECT_EQ(printed(), "");
    EXPECT_STREQ(file.name, "C:\\x"); // answered all the same
}

// On a plain session as on a terminal, the lines end with a bare line feed.
TEST_F(CtcStack, PlainSessionsGetTheSameLines)
{
    session->type = 1;
    Update_encryption_handler(0, 5, 1);
    EXPECT_EQ(printed(), "COMPLETE ENCRYPTION\n");
}

// --- Raised by hand ----------------------------------------------------------------------------------------------

TEST_F(CtcStack, EventsReachTheHandlers)
{
    CLI_ctc_init();
    printed();
    sdk_sim::start();
    struct Case {
        int32_t type;
        const char* values;
        const char* text;
    };
    const Case cases[] = {
        {CTC_EVENT_UPDATE_ENCRYPTION, "llid=5,state=2", "ENCRYPTION FAILED\n"},
        {CTC_EVENT_EXTENDED_OAM_DISCOVERY, "llid=5,state=3,records=1111112000abcd07",
         "Got ONU extended OAM event. OLT: 4, LLID: 5 state:DISCOVERY COMPLETE\n"
         "record 0: oui 0x111111 version 32\nrecord 1: oui 0x00abcd version 7\n"},
        {CTC_EVENT_EXTENDED_OAM_DISCOVERY, "llid=5,state=2",
         "Got ONU extended OAM event. OLT: 4, LLID: 5 state:OAM DISCOVERY FAILED\n"},
        {CTC_EVENT_UPDATE_ONU_ERROR, "onu_id=5,code=-17005,message=no+such+file",
         "Got Update ONU error event. OLT: 4, ONU: 5. error code:-17005, error message:no such file\n"},
        {CTC_EVENT_NOTIFICATION, "onu_id=5,leaf=1,port=3,port_type=1,raised=1,value=9,alarm_id=770",
         "Got Event notification. OLT: 4, ONU: 5, leaf: 1, alarm id: 0x302\n"},
        // The file is not there.
        {CTC_EVENT_UPDATE_ONU_REQUEST, "onu_id=5,information=no-such.img+7",
         "Got ONU Update request event from OLT: 4, ONU: 5 information:no-such.img 7\n"
         "Got Update ONU error event. OLT: 4, ONU: 5. error code:-17005, error message:cannot read C:\\no-such.img\n"},
    };
    for (const Case& test : cases) {
        std::string error;
        EXPECT_TRUE(sdk_sim::raise_event(200 + test.type, 4, test.values, &error)) << error;
        sdk_sim::drain_events();
        sdk_sim::drain_events(); // of what the first one raised
        EXPECT_EQ(printed(), test.text);
    }
    sdk_sim::stop();
}

} // namespace
