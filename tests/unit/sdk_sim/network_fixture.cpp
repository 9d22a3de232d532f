// SPDX-License-Identifier: Apache-2.0
#include "network_fixture.h"

#include <utility>

const std::string_view NETWORK = R"(
name = "TEST"
[clock]
speed = 0
[life]
start_time = 0.5
registration_time = 1
registration_step = 0.01

[[olt]]
id = 0
mac = "02-00-00-00-00-00"
device = { name = "CHIP", hardware_major = 4, hardware_minor = 11, llids_supported = 255, system_port_mac_type = 5, firmware_version = "1.2.3.4", host_version = "5.6.7.65535" }
firmware = { temperature = 47.5, registers = [[0x10, 0xab], [0x20, 7]], log = ["boot", "laser on"] }
xaui_redundancy = { enabled = true, gpio_mode = 1 }
[[olt.onu]]
id = 0
mac = "02-00-00-01-00-00"
rtt = 1234
[[olt.onu]]
id = 1
mac = "02-00-00-01-00-01"
rate = "10g"
mode = "unauthorized"
[[olt.onu]]
id = 2
mac = "02-00-00-01-00-02"
mode = "unregistered"
[[olt.onu]]
id = 3
mac = "02-00-00-01-00-03"
mode = "unregistered"
static = true
[[olt.onu]]
id = 4
mac = "02-00-00-01-00-04"
rate = "10g/1g"
warned = true
[[olt.onu]]
id = 5
mac = "02-00-00-01-00-05"
mode = "discovered"
[[olt.onu]]
id = 254
mac = "02-00-00-01-00-fe"

[[olt]]
id = 1
present = false
mac = "02-00-00-00-00-01"
[[olt.onu]]
id = 0
mac = "02-00-00-02-00-00"

[[olt]]
id = 2
mac = "02-00-00-00-00-02"
recovery_fails = true
)";

namespace {

std::mutex noted_mutex;
std::vector<std::string> noted;

void note(std::int16_t olt_id, const std::string& what)
{
    const std::lock_guard lock(noted_mutex);
    noted.push_back("olt " + std::to_string(olt_id) + ": " + what);
}

void on_registered(std::int16_t olt_id, const OnuRegisteredEvent* event)
{
    note(olt_id, "onu " + std::to_string(event->onu_id) + " registered, rate " + std::to_string(event->rate) +
                     ", rtt " + std::to_string(event->rtt));
}

void on_deregistered(std::int16_t olt_id, const OnuDeregisteredEvent* event)
{
    note(olt_id, "onu " + std::to_string(event->onu_id) + " deregistered, reason " + std::to_string(event->reason));
}

void on_state(std::int16_t olt_id, const OltStateChangedEvent* event)
{
    note(olt_id, "state " + std::to_string(event->state));
}

void on_alarm(std::int16_t olt_id, const AlarmEvent* event)
{
    note(olt_id, "onu " + std::to_string(event->onu_id) + " alarm " + std::to_string(event->alarm) +
                     (event->raised == 1 ? " raised" : " cleared"));
}

void on_switch_over(std::int16_t olt_id, const XauiSwitchedOverEvent* event)
{
    note(olt_id, "channel " + std::to_string(event->channel) + ", cause " + std::to_string(event->cause));
}

template <class Record>
void watch(int kind, void (*handler)(std::int16_t, const Record*))
{
    std::uint16_t id = 0;
    ASSERT_EQ(NEP_assign_handler_function(kind, reinterpret_cast<EventHandler>(handler), &id), 0);
}

} // namespace

NetworkTest::NetworkTest()
{
    sdk_sim::reset();
    std::string error;
    EXPECT_TRUE(sdk_sim::load_scenario_text(NETWORK, "test.toml", &error)) << error;
    sdk_sim::record_journal(true);
    noted.clear();
}

NetworkTest::~NetworkTest()
{
    sdk_sim::reset();
}

void NetworkTest::watch_events()
{
    watch(EVENT_ONU_REGISTERED, on_registered);
    watch(EVENT_ONU_DEREGISTERED, on_deregistered);
    watch(EVENT_OLT_STATE_CHANGED, on_state);
    watch(EVENT_ALARM, on_alarm);
    watch(EVENT_XAUI_SWITCHED_OVER, on_switch_over);
    sdk_sim::take_journal();
    sdk_sim::start();
}

std::vector<std::string> NetworkTest::take_events()
{
    sdk_sim::drain_events();
    const std::lock_guard lock(noted_mutex);
    return std::exchange(noted, {});
}

void NetworkTest::expect_load_error(std::string_view toml, const std::string& error)
{
    std::string told;
    EXPECT_FALSE(sdk_sim::load_scenario_text(toml, "bad.toml", &told)) << toml;
    EXPECT_EQ(told, error) << toml;
    EXPECT_EQ(sdk_sim::network_name(), "TEST") << "the network was changed by: " << toml;
}
