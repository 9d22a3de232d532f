// SPDX-License-Identifier: Apache-2.0
#include "REMOTE_MANAGEMENT_CLI/periph.h"

#include "onu_devices_fixture.h"

namespace {

using RemotePeriph = OnuDevices;

TEST_F(RemotePeriph, AdcConfiguration)
{
    int code = 0;
    for (const std::string item : {"adc-channel", "adc-reference"}) {
        const Show show = remote_show("periph adc-config", " config " + item);
        const std::string arguments = "(0, 5, " + std::to_string(code);
        for (const std::string value : {"1", "0"}) {
            expect_set("remote periph adc-config config " + item + " value " + value,
                       "REMOTE_NEPONU_set_ADC_config" + arguments + ", " + value + ") = 0");
            expect_show(show, "value: " + value + " \r\n",
                        "REMOTE_NEPONU_get_ADC_config" + arguments + ") = 0 -> " + value);
        }
        ++code;
    }
    type("remote periph adc-config config adc-channel value 2");
    EXPECT_EQ(status, engine::MatchStatus::Unknown);
}

// 1250 mV and 3300 mV, against 2500 mV and 3300 mV.
TEST_F(RemotePeriph, SampleOfEachChannelAgainstEachReference)
{
    const Show show = remote_show("periph adc-sample");
    const auto expect_sample = [&](const char* sample) {
        expect_show(show, std::string("sample: ") + sample + " \r\n",
                    std::string("REMOTE_NEPONU_get_ADC_sample(0, 5) = 0 -> ") + sample);
    };
    expect_sample("511");
    type("remote periph adc-config config adc-reference value 1");
    journal();
    expect_sample("387");
    type("remote periph adc-config config adc-channel value 1");
    journal();
    expect_sample("1023");
    type("remote periph adc-config config adc-reference value 0"); // more than the reference
    journal();
    expect_sample("1023");
}

TEST_F(RemotePeriph, SampleWavers)
{
    EXPECT_EQ(type("show remote periph adc-sample"), "sample: 511 \r\n");
    sdk_sim::advance_clock(8000);
    EXPECT_EQ(type("show remote periph adc-sample"), "sample: 514 \r\n");
    sdk_sim::advance_clock(8000);
    EXPECT_EQ(type("show remote periph adc-sample"), "sample: 511 \r\n");
}

TEST_F(RemotePeriph, WrongTypeNameOfTheConverterIsKept)
{
    EXPECT_EQ(call(remote_ADC_config, {"adc", "0"}),
              "Error reading config parameter (of the type loopback_mode), aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(show_remote_ADC_config, {"adc"}),
              "Error reading config parameter (of the type loopback_mode), aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(RemotePeriph, RefusedWords)
{
    expect_keyword(remote_ADC_config, {"?", "0"}, "config", "loopback_mode", 20);
    expect_keyword(show_remote_ADC_config, {"?"}, "config", "loopback_mode", 20);
    expect_refusals({{remote_ADC_config,
                      {"adc-channel", "2"},
                      "Error in range of value parameter for command from input min:0 max:1, aborting\r\n"},
                     {remote_ADC_config,
                      {"adc-channel", "x"},
                      "Error reading value parameter for command from input, aborting\r\n"},
                     {remote_ADC_config,
                      {"adc-channel", "-1"},
                      "Error reading negative value of value parameter from input, aborting\r\n"}});
    uint32_t value;
    EXPECT_EQ(REMOTE_NEPONU_set_ADC_config(0, 5, 2, 0), -4);
    EXPECT_EQ(REMOTE_NEPONU_set_ADC_config(0, 5, 0, 2), -4);
    EXPECT_EQ(REMOTE_NEPONU_get_ADC_config(0, 5, -1, &value), -4);
}

TEST_F(RemotePeriph, FailedCalls)
{
    expect_remote_failures("show remote periph adc-config config adc-channel", "REMOTE_NEPONU_get_ADC_config");
    expect_remote_failures("remote periph adc-config config adc-channel value 1", "REMOTE_NEPONU_set_ADC_config");
    expect_remote_failures("show remote periph adc-sample", "REMOTE_NEPONU_get_ADC_sample");
}

} // namespace
