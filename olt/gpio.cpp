// SPDX-License-Identifier: Apache-2.0
// General purpose lines of an OLT: direction and level.
#include "olt/gpio.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

constexpr Word direction_words[] = {
    {"not-changed", GPIO_DIRECTION_NOT_CHANGED}, {"output", GPIO_DIRECTION_OUTPUT}, {"input", GPIO_DIRECTION_INPUT}};
constexpr WordTable gpio_direction = {"direction", direction_words};

constexpr Word value_words[] = {
    {"not-changed", GPIO_VALUE_NOT_CHANGED}, {"off", GPIO_VALUE_OFF}, {"on", GPIO_VALUE_ON}};
constexpr WordTable gpio_value = {"gpio_value", value_words};

} // namespace

int gpio_access(cmd_element*, vty* session, int, char** argv)
{
    int32_t line;
    int32_t direction;
    int32_t value;
    if (!read_number(session, argv[0], unsigned_range("line_number", 0, GPIO_LINE_LIMIT - 1), &line)) return -1;
    if (!read_word(session, argv[1], "direction", gpio_direction, &direction)) return -1;
    if (!read_word(session, argv[2], "value", gpio_value, &value)) return -1;
    return report(session, NEP_gpio_access(session->olt_id, line, direction, value));
}

static constinit cmd_element gpio_access_cmd =
    command("set gpio line-number <0-66> direction (not-changed|output|input) value (not-changed|off|on)", gpio_access,
            "Change a setting\n"
            "General purpose lines of this OLT\n"
            "Which line\n"
            "Number of the line, 0-66\n"
            "Who drives the line\n"
            "not-changed: as it is; output: this OLT; input: what is connected to it\n"
            "Level of a line that is an output\n"
            "not-changed: as it is; off: low; on: high\n");

namespace epon {

void install_gpio()
{
    install({{&gpio_access_cmd, in(OLT_NODE)}});
}

} // namespace epon
