// SPDX-License-Identifier: Apache-2.0
// Events: descriptions, values, order, the event thread, registration and removal of handlers.
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <set>
#include <thread>

#include "host/sdk_sim/event_table.h"
#include "host/sdk_sim/events.h"
#include "network_fixture.h"

namespace {

using Lines = std::vector<std::string>;

using EventsTest = NetworkTest;

template <class Record>
std::uint16_t assign(int kind, void (*handler)(std::int16_t, const Record*))
{
    std::uint16_t id = 0;
    EXPECT_EQ(NEP_assign_handler_function(kind, reinterpret_cast<EventHandler>(handler), &id), 0);
    return id;
}

void raise(int kind, std::int16_t olt_id, std::string_view values = "")
{
    std::string error;
    EXPECT_TRUE(sdk_sim::raise_event(kind, olt_id, values, &error)) << error;
}

// --- Descriptions ------------------------------------------------------------------------------------------------

constexpr int kinds[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  12, 13, 14, 15, 16, 19, 22, 25, 26, 28,
                         29, 30, 31, 34, 35, 36, 37, 38, 39, 40, 43, 44, 45, 46, 47, 48, 49, 50, 51};
constexpr int ctc_kinds[] = {200, 201, 202, 203, 206}; // of the CTC stack, which registers its own

TEST_F(EventsTest, EveryKindIsDescribed)
{
    std::set<int> described;
    std::set<std::string> names;
    for (const sdk_sim::EventDescription& event : sdk_sim::event_descriptions()) {
        described.insert(event.kind);
        names.insert(event.name);
        EXPECT_FALSE(event.fields.empty()) << event.name;
        EXPECT_EQ(event.name.find_first_not_of("abcdefghijklmnopqrstuvwxyz-"), std::string::npos) << event.name;
        for (const sdk_sim::EventField& field : event.fields)
            EXPECT_FALSE(field.name.empty() || field.meaning.empty()) << event.name;
    }
    std::set<int> expected(std::begin(kinds), std::end(kinds));
    expected.insert(sdk_sim::EVENT_REMOTE_RSTP_LOOP);
    expected.insert(std::begin(ctc_kinds), std::end(ctc_kinds));
    EXPECT_EQ(described, expected);
    EXPECT_EQ(names.size(), expected.size());
    EXPECT_EQ(sdk_sim::event_descriptions().size(), expected.size());
}

// --- Values ------------------------------------------------------------------------------------------------------

TEST_F(EventsTest, ValuesFillTheRecord)
{
    static OnuRegisteredEvent registered;
    static std::int16_t registered_olt;
    static PacketNumberThresholdEvent threshold;
    static ReceivedPowerMeasuredEvent power;
    assign<OnuRegisteredEvent>(EVENT_ONU_REGISTERED, [](std::int16_t olt_id, const OnuRegisteredEvent* event) {
        registered_olt = olt_id;
        registered = *event;
    });
    assign<PacketNumberThresholdEvent>(
        EVENT_PACKET_NUMBER_THRESHOLD,
        [](std::int16_t, const PacketNumberThresholdEvent* event) { threshold = *event; });
    assign<ReceivedPowerMeasuredEvent>(EVENT_RECEIVED_POWER_MEASURED,
                                       [](std::int16_t, const ReceivedPowerMeasuredEvent* event) { power = *event; });
    sdk_sim::start();
    raise(EVENT_ONU_REGISTERED, 15, "onu_id=254,mac=Aa-bB-0c-00-00-ff,rate=2,rtt=0xffff");
    raise(EVENT_PACKET_NUMBER_THRESHOLD, 0, "packet_number=18446744073709551615,llid=-1");
    raise(EVENT_RECEIVED_POWER_MEASURED, 0, "power=-2750");
    sdk_sim::drain_events();
    constexpr std::uint8_t mac[6] = {0xAA, 0xBB, 0x0C, 0, 0, 0xFF};
    EXPECT_EQ(registered_olt, 15);
    EXPECT_EQ(registered.onu_id, 254);
    EXPECT_EQ(std::memcmp(registered.mac, mac, sizeof(mac)), 0);
    EXPECT_EQ(registered.rate, 2);
    EXPECT_EQ(registered.rtt, 65535U);
    EXPECT_EQ(threshold.packet_number, UINT64_MAX);
    EXPECT_EQ(threshold.llid, -1);
    EXPECT_EQ(power.power, -2750);
    EXPECT_EQ(power.llid, 0) << "what is not named is 0";
}

TEST_F(EventsTest, OctetsTravelWithTheirLength)
{
    static std::string data;
    static std::uint32_t length;
    const auto keep = [](std::uint32_t count, const std::uint8_t* octets) {
        length = count;
        data.assign(reinterpret_cast<const char*>(octets), count);
    };
    static const auto keep_octets = keep;
    assign<EthernetFrameReceivedEvent>(
        EVENT_ETHERNET_FRAME_RECEIVED,
        [](std::int16_t, const EthernetFrameReceivedEvent* event) { keep_octets(event->length, event->frame); });
    assign<OamFrameReceivedEvent>(EVENT_OAM_FRAME_RECEIVED, [](std::int16_t, const OamFrameReceivedEvent* event) {
        keep_octets(event->length, event->frame);
    });
    assign<UartDataReceivedEvent>(EVENT_UART_DATA_RECEIVED, [](std::int16_t, const UartDataReceivedEvent* event) {
        keep_octets(event->length, event->data);
    });
    sdk_sim::start();
    raise(EVENT_ETHERNET_FRAME_RECEIVED, 0, "llid=3,frame=0011ffFE,port=1");
    sdk_sim::drain_events();
    EXPECT_EQ(data, std::string("\x00\x11\xff\xfe", 4));
    raise(EVENT_OAM_FRAME_RECEIVED, 0, "frame=" + std::string(4000, '5'));
    sdk_sim::drain_events();
    EXPECT_EQ(data, std::string(2000, '\x55'));
    raise(EVENT_UART_DATA_RECEIVED, 0);
    sdk_sim::drain_events();
    EXPECT_EQ(length, 0U);
}

TEST_F(EventsTest, WrongValuesAreExplained)
{
    struct Case {
        int kind;
        std::int16_t olt_id;
        const char* values;
        const char* error;
    };
    const Case cases[] = {
        {0, 0, "", "there is no event kind 0"},
        {10, 0, "", "there is no event kind 10"},
        {55, 0, "", "there is no event kind 55"},
        {5, 16, "", "olt: expected a number 0-15"},
        {5, -1, "", "olt: expected a number 0-15"},
        {5, 0, "onu_id", "\"onu_id\" is no field=value"},
        {5, 0, "onu_id=5,,alarm=4", "\"\" is no field=value"},
        {5, 0, "onu=5", "alarm has no field \"onu\"; it has onu_id, alarm, raised, value"},
        {5, 0, "onu_id=", "onu_id: expected a number -32768-32767"},
        {5, 0, "onu_id=40000", "onu_id: expected a number -32768-32767"},
        {5, 0, "onu_id=5x", "onu_id: expected a number -32768-32767"},
        {5, 0, "onu_id=0x-5", "onu_id: expected a number -32768-32767"},
        {5, 0, "raised=256", "raised: expected a number 0-255"},
        {5, 0, "raised=-1", "raised: expected a number 0-255"},
        {5, 0, "alarm=2147483648", "alarm: expected a number -2147483648-2147483647"},
        {5, 0, "value=4294967296", "value: expected a number 0-4294967295"},
        {26, 0, "port=65536", "port: expected a number 0-65535"},
        {46, 0, "packet_number=18446744073709551616", "packet_number: expected a number 0-18446744073709551615"},
        {2, 0, "mac=00-11-22-33-44", "mac: expected a MAC address aa-bb-cc-dd-ee-ff"},
        {2, 0, "mac=00:11:22:33:44:55", "mac: expected a MAC address aa-bb-cc-dd-ee-ff"},
        {2, 0, "mac=00-11-22-33-44-5g", "mac: expected a MAC address aa-bb-cc-dd-ee-ff"},
        {48, 0, "data=123", "data: expected octets as pairs of hexadecimal digits"},
        {48, 0, "data=12 3", "data: expected octets as pairs of hexadecimal digits"},
        {48, 0, "length=1", "uart-data-received has no field \"length\"; it has data"},
    };
    for (const Case& test : cases) {
        std::string error;
        EXPECT_FALSE(sdk_sim::raise_event(test.kind, test.olt_id, test.values, &error)) << test.values;
        EXPECT_EQ(error, test.error) << test.values;
    }
}

// --- Delivery ----------------------------------------------------------------------------------------------------

TEST_F(EventsTest, EventsWaitForTheStartAndKeepTheirOrder)
{
    watch_events();
    sdk_sim::stop();
    for (int i = 0; i < 100; ++i)
        raise(EVENT_ALARM, static_cast<std::int16_t>(i % 16), "raised=1,onu_id=" + std::to_string(i));
    EXPECT_EQ(take_events(), Lines{});
    sdk_sim::start();
    const Lines events = take_events();
    ASSERT_EQ(events.size(), 100U);
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(events[i], "olt " + std::to_string(i % 16) + ": onu " + std::to_string(i) + " alarm 0 raised");
}

TEST_F(EventsTest, OneThreadDeliversAll)
{
    static std::set<std::thread::id> threads;
    threads.clear();
    assign<AlarmEvent>(EVENT_ALARM,
                       [](std::int16_t, const AlarmEvent*) { threads.insert(std::this_thread::get_id()); });
    sdk_sim::start();
    for (int i = 0; i < 10; ++i)
        raise(EVENT_ALARM, 0);
    sdk_sim::drain_events();
    EXPECT_EQ(threads.size(), 1U);
    EXPECT_FALSE(threads.contains(std::this_thread::get_id()));
}

TEST_F(EventsTest, HandlersOfOneKindAreAllCalled)
{
    static Lines calls;
    calls.clear();
    assign<AlarmEvent>(EVENT_ALARM, [](std::int16_t, const AlarmEvent*) { calls.emplace_back("first"); });
    const std::uint16_t second =
        assign<AlarmEvent>(EVENT_ALARM, [](std::int16_t, const AlarmEvent*) { calls.emplace_back("second"); });
    sdk_sim::start();
    raise(EVENT_ALARM, 0);
    sdk_sim::drain_events();
    EXPECT_EQ(calls, (Lines{"first", "second"}));
    EXPECT_EQ(NEP_delete_handler_function(second), 0);
    raise(EVENT_ALARM, 0);
    sdk_sim::drain_events();
    EXPECT_EQ(calls, (Lines{"first", "second", "first"}));
}

TEST_F(EventsTest, RegistrationIsChecked)
{
    const auto handler = reinterpret_cast<EventHandler>(+[](std::int16_t, const AlarmEvent*) {});
    std::uint16_t id = 0;
    for (const int reserved : {-1, 0, 10, 11, 17, 18, 20, 21, 23, 24, 27, 32, 33, 41, 42, 52, 54, 55, 100, 1000})
        EXPECT_EQ(NEP_assign_handler_function(reserved, handler, &id), -4) << reserved;
    EXPECT_EQ(NEP_assign_handler_function(5, nullptr, &id), -4);
    EXPECT_EQ(NEP_assign_handler_function(5, handler, nullptr), -4);
    journal();
    std::set<std::uint16_t> ids;
    for (const int kind : kinds) {
        ASSERT_EQ(NEP_assign_handler_function(kind, handler, &id), 0) << kind;
        ids.insert(id);
    }
    EXPECT_EQ(ids.size(), std::size(kinds));
    EXPECT_EQ(*ids.begin(), 1);
    EXPECT_EQ(journal().front(), "NEP_assign_handler_function(1) = 0 -> 1");
    EXPECT_EQ(NEP_delete_handler_function(1), 0);
    EXPECT_EQ(NEP_delete_handler_function(1), 0) << "an id that names nothing is ignored";
    EXPECT_EQ(NEP_delete_handler_function(0), 0);
    EXPECT_EQ(journal(), (Lines{"NEP_delete_handler_function(1) = 0", "NEP_delete_handler_function(1) = 0",
                                "NEP_delete_handler_function(0) = 0"}));
}

TEST_F(EventsTest, IdsComeRoundWithoutMeetingOneThatIsInUse)
{
    const auto handler = reinterpret_cast<EventHandler>(+[](std::int16_t, const AlarmEvent*) {});
    sdk_sim::record_journal(false);
    std::uint16_t kept = 0;
    std::uint16_t id = 0;
    ASSERT_EQ(NEP_assign_handler_function(5, handler, &kept), 0);
    for (int i = 0; i < 70000; ++i) {
        ASSERT_EQ(NEP_assign_handler_function(5, handler, &id), 0);
        ASSERT_NE(id, 0);
        ASSERT_NE(id, kept);
        ASSERT_EQ(NEP_delete_handler_function(id), 0);
    }
}

// --- Removal -----------------------------------------------------------------------------------------------------

// A handler that stays inside until it is let go.
std::atomic<bool> is_inside;
std::atomic<bool> may_leave;
std::atomic<bool> has_left;

void stay_inside(std::int16_t, const AlarmEvent*)
{
    is_inside = true;
    while (!may_leave)
        std::this_thread::yield();
    has_left = true;
}

TEST_F(EventsTest, RemovalWaitsForTheRunningHandler)
{
    is_inside = may_leave = has_left = false;
    const std::uint16_t id = assign<AlarmEvent>(EVENT_ALARM, stay_inside);
    sdk_sim::start();
    raise(EVENT_ALARM, 0);
    while (!is_inside)
        std::this_thread::yield();
    std::thread opener([] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        may_leave = true;
    });
    EXPECT_EQ(NEP_delete_handler_function(id), 0);
    EXPECT_TRUE(has_left);
    is_inside = false;
    raise(EVENT_ALARM, 0);
    sdk_sim::drain_events();
    EXPECT_FALSE(is_inside);
    opener.join();
}

std::uint16_t own_id;
std::atomic<int> own_calls;

TEST_F(EventsTest, HandlersMayRemoveThemselvesAndCallOperations)
{
    own_calls = 0;
    own_id = assign<AlarmEvent>(EVENT_ALARM, [](std::int16_t, const AlarmEvent*) {
        ++own_calls;
        EXPECT_NE(Olt_exists(0), 0);
        EXPECT_EQ(NEP_reset_olt(0), 0);
        EXPECT_EQ(NEP_delete_handler_function(own_id), 0);
        sdk_sim::drain_events(); // returns, though this event is not delivered yet
    });
    sdk_sim::start();
    raise(EVENT_ALARM, 0);
    raise(EVENT_ALARM, 0);
    sdk_sim::drain_events();
    EXPECT_EQ(own_calls, 1);
}

TEST_F(EventsTest, StopDeliversNothingMore)
{
    is_inside = may_leave = has_left = false;
    assign<AlarmEvent>(EVENT_ALARM, stay_inside);
    sdk_sim::start();
    raise(EVENT_ALARM, 0);
    while (!is_inside)
        std::this_thread::yield();
    is_inside = false;
    raise(EVENT_ALARM, 0);
    std::thread opener([] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        may_leave = true;
    });
    sdk_sim::stop();
    EXPECT_TRUE(has_left);
    EXPECT_FALSE(is_inside) << "the second event waits for the next start";
    opener.join();
    sdk_sim::stop();
    sdk_sim::drain_events();
}

// --- Threads -----------------------------------------------------------------------------------------------------

std::atomic<int> alarms_seen;

TEST_F(EventsTest, OperationsEventsAndRegistrationsFromManyThreads)
{
    alarms_seen = 0;
    assign<AlarmEvent>(EVENT_ALARM, [](std::int16_t, const AlarmEvent*) {
        ++alarms_seen;
        Olt_exists(0);
    });
    sdk_sim::start();
    constexpr int rounds = 200;
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([number] {
            const auto handler = reinterpret_cast<EventHandler>(+[](std::int16_t, const AlarmEvent*) {});
            for (int i = 0; i < rounds; ++i) {
                std::uint16_t id = 0;
                EXPECT_EQ(NEP_assign_handler_function(EVENT_ALARM, handler, &id), 0);
                raise(EVENT_ALARM, 0, "onu_id=1");
                std::int32_t value = 0;
                NEP_xaui_redundancy_set_params(0, number % 3, i % 2);
                NEP_xaui_redundancy_get_params(0, number % 3, &value);
                if (number == 0 && i % 20 == 0) {
                    sdk_sim::remove_olt(0);
                    sdk_sim::return_olt(0);
                }
                if (number == 1) sdk_sim::advance_clock(10);
                if (number == 2 && i % 50 == 0) sdk_sim::drain_events();
                EXPECT_EQ(NEP_delete_handler_function(id), 0);
            }
        });
    }
    for (std::thread& thread_of_test : threads)
        thread_of_test.join();
    sdk_sim::drain_events();
    EXPECT_EQ(alarms_seen, 4 * rounds);
    EXPECT_NE(Olt_exists(0), 0);
}

} // namespace
