// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <thread>

#include "console_fixture.h"

namespace {

class Events : public Console {
  protected:
    Events()
    {
        session->event_notify = 1;
        EXPECT_EQ(CLI_initialization(), 0);
        sdk_sim::start();
    }

    // What the session sees of one event.
    std::string raise(int kind, std::string_view values, int16_t olt_id = 0)
    {
        std::string error;
        EXPECT_TRUE(sdk_sim::raise_event(kind, olt_id, values, &error)) << error;
        sdk_sim::drain_events();
        return engine::take_output(session);
    }
};

TEST_F(Events, EveryKindPrintsItsNameAndAllItsValues)
{
    struct Case {
        int kind;
        const char* values;
        const char* line;
    };
    const std::vector<Case> cases = {
        {EVENT_ETHERNET_FRAME_RECEIVED, "llid=5,port=1,frame=00112233445566778899aabb0800",
         "ethernet-frame-received: olt 0, llid 5, port system, length 14, frame 00112233445566778899aabb0800"},
        {EVENT_ONU_REGISTERED, "onu_id=254,mac=00-0d-b6-01-02-03,rate=1,rtt=1234",
         "onu-registered: olt 0, onu 254, mac 00-0d-b6-01-02-03, rate 10G/1G, rtt 1234"},
        {EVENT_ONU_DEREGISTERED, "onu_id=0,mac=ff-ee-dd-cc-bb-aa,reason=3",
         "onu-deregistered: olt 0, onu 0, mac ff-ee-dd-cc-bb-aa, reason onu"},
        {EVENT_ONU_REGISTRATION_REFUSED, "mac=00-0d-b6-01-02-03,reason=1",
         "onu-registration-refused: olt 0, mac 00-0d-b6-01-02-03, reason black-listed"},
        {EVENT_ALARM, "onu_id=5,alarm=4,raised=1,value=0",
         "alarm: olt 0, onu 5, alarm dying-gasp, state raised, value 0"},
        {EVENT_LINK_TEST_COMPLETED,
         "llid=7,frames_sent=100,frames_received=99,frame_errors=1,min_delay=10,max_delay=4294967295,average_delay=15",
         "link-test-completed: olt 0, llid 7, frames-sent 100, frames-received 99, frame-errors 1, min-delay 10, "
         "max-delay 4294967295, average-delay 15"},
        {EVENT_LOOPBACK_CHANGED, "onu_id=-1,state=1", "loopback-changed: olt 0, onu -1, state closed"},
        {EVENT_SELF_TEST_COMPLETED, "tests_run=12,tests_failed=0",
         "self-test-completed: olt 0, tests-run 12, tests-failed 0"},
        {EVENT_ONU_AUTHORIZATION_CHANGED, "llid=3,mac=00-0d-b6-01-02-03,authorized=0",
         "onu-authorization-changed: olt 0, llid 3, mac 00-0d-b6-01-02-03, authorized no"},
        {EVENT_OAM_FRAME_RECEIVED, "llid=3,frame=0180c2000002",
         "oam-frame-received: olt 0, llid 3, length 6, frame 0180c2000002"},
        {EVENT_OAM_LINK_CHANGED, "llid=3,state=1", "oam-link-changed: olt 0, llid 3, state up"},
        {EVENT_OAM_ERRORS_REPORTED, "llid=3,type=4,window=60,threshold=1,errors=2",
         "oam-errors-reported: olt 0, llid 3, type errored-frame-seconds, window 60, threshold 1, errors 2"},
        {EVENT_ENCRYPTION_CHANGED, "llid=3,direction=2",
         "encryption-changed: olt 0, llid 3, direction uplink-downlink"},
        {EVENT_ENCRYPTION_KEY_UPDATED, "llid=3,key_index=1", "encryption-key-updated: olt 0, llid 3, key-index 1"},
        {EVENT_OLT_STATE_CHANGED, "state=2", "olt-state-changed: olt 0, state operational"},
        {EVENT_DBA_STATE_CHANGED, "dba=1,running=1", "dba-state-changed: olt 0, dba internal, running yes"},
        {EVENT_DBA_SLA_REFUSED, "llid=3,result=7", "dba-sla-refused: olt 0, llid 3, result 7"},
        {EVENT_CNI_LINK_CHANGED, "port=1,state=0", "cni-link-changed: olt 0, port 1, state down"},
        {EVENT_PON_SIGNAL_CHANGED, "state=0", "pon-signal-changed: olt 0, state lost"},
        {EVENT_OPTICAL_MODULE_CHANGED, "module=1,present=1",
         "optical-module-changed: olt 0, module secondary, present yes"},
        {EVENT_DUPLICATE_MAC_ADDRESS, "llid=3,mac=00-0d-b6-01-02-03",
         "duplicate-mac-address: olt 0, llid 3, mac 00-0d-b6-01-02-03"},
        {EVENT_MAC_MIGRATED, "mac=00-0d-b6-01-02-03,from_llid=3,to_llid=4,vlan=4095",
         "mac-migrated: olt 0, mac 00-0d-b6-01-02-03, from-llid 3, to-llid 4, vlan 4095"},
        {EVENT_ADDRESS_TABLE_FULL, "llid=-1,entries=65536", "address-table-full: olt 0, llid -1, entries 65536"},
        {EVENT_MULTICAST_GROUP_CHANGED, "llid=3,group=01-00-5e-01-02-03,vlan=100,joined=1",
         "multicast-group-changed: olt 0, llid 3, group 01-00-5e-01-02-03, vlan 100, state joined"},
        {EVENT_PROTECTION_SWITCHED, "active_olt=1,cause=1",
         "protection-switched: olt 0, active-olt 1, cause loss-of-signal"},
        {EVENT_XAUI_SWITCHED_OVER, "channel=1,cause=2", "xaui-switched-over: olt 0, channel secondary, cause gpio"},
        {EVENT_REFERENCE_CLOCK_CHANGED, "source=2,locked=1", "reference-clock-changed: olt 0, source 2, locked yes"},
        {EVENT_TIME_OF_DAY_CHANGED, "seconds=1700000000,nanoseconds=999999999",
         "time-of-day-changed: olt 0, seconds 1700000000, nanoseconds 999999999"},
        {EVENT_FIRMWARE_DOWNLOAD_PROGRESS, "onu_id=3,bytes_done=512,bytes_total=1024",
         "firmware-download-progress: olt 0, onu 3, bytes-done 512, bytes-total 1024"},
        {EVENT_ROGUE_ONU_DETECTED, "onu_id=3,mac=00-0d-b6-01-02-03,violations=9",
         "rogue-onu-detected: olt 0, onu 3, mac 00-0d-b6-01-02-03, violations 9"},
        {EVENT_MKA_STATE_CHANGED, "llid=3,state=2", "mka-state-changed: olt 0, llid 3, state secured"},
        {EVENT_MKA_KEY_INSTALLED, "llid=3,association=1,key_number=77",
         "mka-key-installed: olt 0, llid 3, association 1, key-number 77"},
        {EVENT_PACKET_NUMBER_THRESHOLD, "llid=3,packet_number=18446744073709551615",
         "packet-number-threshold: olt 0, llid 3, packet-number 18446744073709551615"},
        {EVENT_GPIO_CHANGED, "line=66,level=1", "gpio-changed: olt 0, line 66, level on"},
        {EVENT_UART_DATA_RECEIVED, "data=ff00", "uart-data-received: olt 0, length 2, data ff00"},
        {EVENT_OTDR_MEASURED, "distance=2000,loss=1234", "otdr-measured: olt 0, distance 2000, loss 12.34"},
        {EVENT_FLOOD_DETECTED, "llid=3,protocol=0,rate=5000", "flood-detected: olt 0, llid 3, protocol arp, rate 5000"},
        {EVENT_RECEIVED_POWER_MEASURED, "llid=3,power=-2305", "received-power-measured: olt 0, llid 3, power -23.05"},
    };
    ASSERT_EQ(cases.size(), 38u);
    for (const Case& c : cases)
        EXPECT_EQ(raise(c.kind, c.values), std::string(c.line) + " \r\n");
}

TEST_F(Events, ValuesOutsideTheirTablesAreInvalid)
{
    EXPECT_EQ(raise(EVENT_ALARM, "onu_id=1,alarm=42,raised=0,value=3"),
              "alarm: olt 0, onu 1, alarm Invalid value, state cleared, value 3 \r\n");
    EXPECT_EQ(raise(EVENT_ALARM, "onu_id=1,alarm=-1,raised=2,value=3"),
              "alarm: olt 0, onu 1, alarm Invalid value, state Invalid value, value 3 \r\n");
    EXPECT_EQ(raise(EVENT_DBA_STATE_CHANGED, "dba=7,running=0"),
              "dba-state-changed: olt 0, dba Invalid value, running no \r\n");
}

TEST_F(Events, EveryAlarmHasItsName)
{
    for (int alarm = 0; alarm < CLI_ALARM_COUNT; ++alarm) {
        const std::string values = "onu_id=1,alarm=" + std::to_string(alarm) + ",raised=1,value=0";
        EXPECT_EQ(raise(EVENT_ALARM, values),
                  std::string("alarm: olt 0, onu 1, alarm ") + CLI_alarm_s[alarm] + ", state raised, value 0 \r\n");
    }
}

TEST_F(Events, LongFramesAreCutAndCounted)
{
    const std::string longest_whole = [] {
        std::string hex;
        for (int i = 0; i < 128; ++i)
            hex += "5a";
        return hex;
    }();
    EXPECT_EQ(raise(EVENT_OAM_FRAME_RECEIVED, "llid=1,frame=" + longest_whole),
              "oam-frame-received: olt 0, llid 1, length 128, frame " + longest_whole + " \r\n");
    EXPECT_EQ(raise(EVENT_OAM_FRAME_RECEIVED, "llid=1,frame=" + longest_whole + "0102"),
              "oam-frame-received: olt 0, llid 1, length 130, frame " + longest_whole + "... (2 more) \r\n");
}

TEST_F(Events, WithoutEventNotifyNothingIsPrinted)
{
    session->event_notify = 0;
    EXPECT_EQ(raise(EVENT_PON_SIGNAL_CHANGED, "state=0"), "");
}

TEST_F(Events, AfterTerminationOnlyTheKindsOutsideItsListPrint)
{
    ASSERT_EQ(CLI_termination(), 0);
    const std::vector<int> still_printed = {30, 37, 51}; // the deletion of slot 30 removes the printer of kind 31
    for (const sdk_sim::EventDescription& event : sdk_sim::event_descriptions()) {
        const bool is_expected = std::count(still_printed.begin(), still_printed.end(), event.kind) != 0;
        EXPECT_EQ(!raise(event.kind, "").empty(), is_expected) << event.name;
    }
}

TEST_F(Events, TheExtendedFrameHandlerIsExported)
{
    const uint8_t frame[] = {1, 2, 3};
    const EthernetFrameReceivedEvent event = {-1, 0, 3, frame};
    Ethernet_extended_frame_received_handler(2, &event);
    EXPECT_EQ(engine::take_output(session),
              "ethernet-frame-received: olt 2, llid -1, port pon, length 3, frame 010203 \r\n");
}

} // namespace
