// SPDX-License-Identifier: Apache-2.0
#include "REMOTE_MANAGEMENT_CLI/alarm_configuration.h"

#include "event_lines.h"
#include "onu_devices_fixture.h"

namespace {

constexpr const char* WORDS[] = {
    "errored-symbols-period",
    "errored-frame",
    "errored-frame-period",
    "second-summary",
    "dying-gasp",
    "link-fault",
    "critical-event",
    "igmp-join",
    "igmp-leave",
    "encryption-key",
    "encryption-state",
    "fec-rx-mode",
    "address-tbl-full",
    "connection-state",
    "uni-link",
    "pon-loopback",
    "authorization",
    "pre-reset",
    "image-burn",
    "eapol",
    "reserved1",
    "reserved2",
    "mpcp-nack",
    "mld-join",
    "mld-done",
    "host-timeout",
    "oam-receive",
    "gpio-irq",
};

class RemoteAlarms : public OnuDevices {
  protected:
    std::string set(const std::string& alarm, const std::string& enable, const std::string& window,
                    const std::string& threshold)
    {
        return type("remote oam-api alarm-configuration type " + alarm + " enable-hook-function " + enable +
                    " window " + window + " threshold " + threshold);
    }
    static std::string errors(const char* type, const char* values)
    {
        return std::string("oam-errors-reported: olt 0, llid 5, type ") + type + ", " + values + " \r\n";
    }
};

TEST_F(RemoteAlarms, AsDelivered)
{
    struct Case {
        const char* word;
        const char* lines;
        const char* values;
    };
    const Case cases[] = {
        {"errored-symbols-period", "window: 1.25e+09 \r\nthreshold: 1 \r\n", "1250000000, 1"},
        {"errored-frame", "window: 10 \r\nthreshold: 1 \r\n", "10, 1"},
        {"errored-frame-period", "window: 1.4881e+06 \r\nthreshold: 1 \r\n", "1488100, 1"},
        {"second-summary", "window: 600 \r\nthreshold: 1 \r\n", "600, 1"},
    };
    int code = 0;
    for (const Case& test : cases) {
        expect_show(remote_show("oam-api alarm-configuration", std::string(" type ") + test.word),
                    std::string("enable_hook_function: Disable \r\n") + test.lines,
                    "REMOTE_NEPONU_get_alarm_configuration(0, 5, " + std::to_string(code) + ") = 0 -> 0, " +
                        test.values);
        ++code;
    }
}

TEST_F(RemoteAlarms, ShownAsSet)
{
    EXPECT_EQ(set("errored-frame", "enable", "600", "4294967295"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"REMOTE_NEPONU_set_alarm_configuration(0, 5, 1, 1, 600, 4294967295) = 0"});
    EXPECT_EQ(type("show remote oam-api alarm-configuration type errored-frame"),
              "enable_hook_function: Enable \r\nwindow: 600 \r\nthreshold: 4.29497e+09 \r\n");
    journal();
    EXPECT_EQ(set("errored-symbols-period", "disable", "0xffffffffffffffff", "18446744073709551615"), "");
    EXPECT_EQ(journal(), Calls{"REMOTE_NEPONU_set_alarm_configuration(0, 5, 0, 0, 18446744073709551615, "
                               "18446744073709551615) = 0"});
    EXPECT_EQ(type("show remote oam-api alarm-configuration type errored-symbols-period"),
              "enable_hook_function: Disable \r\nwindow: 1.84467e+19 \r\nthreshold: 1.84467e+19 \r\n");
}

TEST_F(RemoteAlarms, HandlersTakeAllWordsOfTheType)
{
    int code = 0;
    for (const char* word : WORDS) {
        const std::string number = std::to_string(code);
        EXPECT_EQ(call(remote_alarm_configuration, {word, "enable", "100", "7"}), "") << word;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(call(show_remote_alarm_configuration, {word}),
                  "enable_hook_function: Enable \r\nwindow: 100 \r\nthreshold: 7 \r\n");
        EXPECT_EQ(call(remote_event_configuration, {word, "disable"}), "") << word;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(call(remote_event_configuration, {word, "enable"}), "") << word;
        EXPECT_EQ(journal(), (Calls{"REMOTE_NEPONU_set_alarm_configuration(0, 5, " + number + ", 1, 100, 7) = 0",
                                    "REMOTE_NEPONU_get_alarm_configuration(0, 5, " + number + ") = 0 -> 1, 100, 7",
                                    "REMOTE_NEPONU_set_event_configuration(0, 5, " + number + ", 0) = 0",
                                    "REMOTE_NEPONU_set_event_configuration(0, 5, " + number + ", 1) = 0"}));
        ++code;
    }
    EXPECT_EQ(code, 28);
}

TEST_F(RemoteAlarms, GrammarsOfferFourWordsEach)
{
    for (const char* word : {"address-tbl-full", "uni-link", "pre-reset", "image-burn"}) {
        const std::string line = std::string("remote device-mgmt event-configuration type ") + word + " event ";
        EXPECT_EQ(type(line + "disable"), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(type(line + "enable"), "");
        EXPECT_EQ(set(word, "enable", "1", "1").substr(0, 1), " "); // the caret
        EXPECT_EQ(status, engine::MatchStatus::Unknown);
    }
    type("remote device-mgmt event-configuration type errored-frame event enable");
    EXPECT_EQ(status, engine::MatchStatus::Unknown);
}

TEST_F(RemoteAlarms, RefusedWords)
{
    expect_keyword(remote_alarm_configuration, {"?", "enable", "10", "1"}, "type", "alarm_event_type", 30);
    expect_keyword(remote_alarm_configuration, {"errored-frame", "?", "10", "1"}, "enable_hook_function",
                   "enable_disable", 10);
    expect_keyword(show_remote_alarm_configuration, {"?"}, "type", "alarm_event_type", 30);
    expect_keyword(remote_event_configuration, {"?", "enable"}, "type", "alarm_event_type", 30);
    expect_keyword(remote_event_configuration, {"uni-link", "?"}, "event", "enable_disable", 10);
    for (const auto& [which, name] : {std::pair<size_t, std::string>{2, "window"}, {3, "threshold"}}) {
        const std::pair<const char*, std::string> numbers[] = {
            {"x", "Error reading " + name + " parameter for command from input, aborting\r\n"},
            {"1s", "Error reading " + name + " parameter for command from input, aborting\r\n"},
            {"18446744073709551616", "Error reading " + name + " parameter for command from input, aborting\r\n"},
            {"-1", "Error reading negative value of " + name + " parameter from input, aborting\r\n"}};
        for (const auto& [text, message] : numbers) {
            std::vector<std::string> refused = {"errored-frame", "enable", "10", "1"};
            refused[which] = text;
            expect_refusals({{remote_alarm_configuration, refused, message}});
        }
    }
}

TEST_F(RemoteAlarms, WindowsThatAnAlarmCannotHave)
{
    const std::vector<std::string> refused[] = {
        {"errored-symbols-period", "0", "1"}, {"errored-frame", "9", "1"},
        {"errored-frame", "601", "1"},        {"errored-frame", "10", "4294967296"},
        {"errored-frame-period", "0", "1"},   {"errored-frame-period", "4294967296", "1"},
        {"second-summary", "99", "1"},        {"second-summary", "9001", "1"},
        {"second-summary", "100", "65536"},
    };
    for (const auto& words : refused) {
        EXPECT_EQ(set(words[0], "enable", words[1], words[2]), failure("bad configuration", -13008)) << words[0];
        EXPECT_EQ(result, 0);
        EXPECT_EQ(set(words[0], "disable", words[1], words[2]), ""); // what does not count needs no window
    }
    EXPECT_EQ(REMOTE_NEPONU_set_alarm_configuration(0, 5, 28, 1, 10, 1), -4);
    EXPECT_EQ(REMOTE_NEPONU_set_alarm_configuration(0, 5, -1, 1, 10, 1), -4);
    EXPECT_EQ(REMOTE_NEPONU_set_alarm_configuration(0, 5, 1, 2, 10, 1), -4);
    EXPECT_EQ(REMOTE_NEPONU_set_event_configuration(0, 5, 28, 1), -4);
    EXPECT_EQ(REMOTE_NEPONU_set_event_configuration(0, 5, 1, 2), -4);
}

// Two frames a second are lost.
TEST_F(RemoteAlarms, EachWindowWithEnoughErrorsIsAnEvent)
{
    struct Case {
        const char* word;
        const char* window;
        const char* threshold;
        uint64_t milliseconds;
        std::string line;
    };
    const Case cases[] = {
        {"errored-frame", "10", "2", 1000, errors("errored-frame", "window 10, threshold 2, errors 2")},
        {"errored-frame", "50", "10", 5000, errors("errored-frame", "window 50, threshold 10, errors 10")},
        {"errored-frame-period", "3000", "6", 3000,
         errors("errored-frame-period", "window 3000, threshold 6, errors 6")},
        {"errored-symbols-period", "2500000000", "8", 2000,
         errors("errored-symbol-period", "window 2500000000, threshold 8, errors 8")},
        {"second-summary", "100", "10", 10000, errors("errored-frame-seconds", "window 100, threshold 10, errors 10")},
    };
    for (const Case& test : cases) {
        EventLines events;
        EXPECT_EQ(set(test.word, "enable", test.window, test.threshold), "");
        EXPECT_EQ(events.after(test.milliseconds - 1), "") << test.word;
        EXPECT_EQ(events.after(1), test.line);
        EXPECT_EQ(events.after(2 * test.milliseconds), test.line + test.line);
        EXPECT_EQ(set(test.word, "disable", test.window, test.threshold), "");
        EXPECT_EQ(events.after(2 * test.milliseconds), "");
    }
}

TEST_F(RemoteAlarms, WindowWithFewerErrorsIsNoEvent)
{
    EventLines events;
    EXPECT_EQ(set("errored-frame", "enable", "10", "3"), "");
    EXPECT_EQ(events.after(60000), "");
    EXPECT_EQ(set("errored-frame", "enable", "10", "0"), ""); // no error is enough
    EXPECT_EQ(events.after(1000), errors("errored-frame", "window 10, threshold 0, errors 2"));
}

TEST_F(RemoteAlarms, EventThatIsSwitchedOffIsNotSent)
{
    EventLines events;
    EXPECT_EQ(set("errored-frame", "enable", "10", "1"), "");
    EXPECT_EQ(call(remote_event_configuration, {"errored-frame", "disable"}), "");
    EXPECT_EQ(events.after(5000), "");
    EXPECT_EQ(call(remote_event_configuration, {"errored-frame", "enable"}), "");
    EXPECT_EQ(events.after(1000), errors("errored-frame", "window 10, threshold 1, errors 2"));
}

TEST_F(RemoteAlarms, AlarmEndsWithTheRegistration)
{
    EventLines events;
    EXPECT_EQ(set("errored-frame", "enable", "10", "1"), "");
    type("remote device-mgmt reset-device reason sw");
    const std::string lines = events.after(60000);
    EXPECT_EQ(lines.find("oam-errors-reported"), std::string::npos) << lines;
    EXPECT_EQ(type("show remote oam-api alarm-configuration type errored-frame"),
              "enable_hook_function: Disable \r\nwindow: 10 \r\nthreshold: 1 \r\n");
}

TEST_F(RemoteAlarms, FailedCalls)
{
    const std::pair<const char*, const char*> commands[] = {
        {"show remote oam-api alarm-configuration type errored-frame", "REMOTE_NEPONU_get_alarm_configuration"},
        {"remote oam-api alarm-configuration type errored-frame enable-hook-function enable window 10 threshold 1",
         "REMOTE_NEPONU_set_alarm_configuration"},
        {"remote device-mgmt event-configuration type uni-link event enable", "REMOTE_NEPONU_set_event_configuration"},
    };
    for (const auto& [line, operation] : commands)
        expect_remote_failures(line, operation);
}

} // namespace
