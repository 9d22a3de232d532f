// SPDX-License-Identifier: Apache-2.0
// An OLT's UART. Nothing is connected to it: it receives what it sends itself while its loopback is closed.
#include <algorithm>

#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

constexpr std::size_t RECEIVER_SIZE = 256;

const Operation write_uart("NEP_write_uart", GENERAL);
const Operation read_uart("NEP_read_uart", GENERAL);

// The octets that were read: as many as *count says.
struct ReceivedOctets {
    std::int32_t* count;
    std::uint8_t* octets;
};

bool is_null(const ReceivedOctets& value)
{
    return value.count == nullptr || value.octets == nullptr;
}

void clear_result(const ReceivedOctets& value)
{
    if (value.count != nullptr) *value.count = 0;
}

void append_value(std::string* line, const ReceivedOctets& value)
{
    *line += std::to_string(*value.count) + ", ";
    append_octets(line, value.octets, static_cast<std::size_t>(*value.count));
}

bool is_flag(std::int32_t value)
{
    return value == 0 || value == 1;
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_write_uart(int16_t olt_id, int32_t value, int32_t start_loopback)
{
    return on_olt(write_uart, olt_id, in(olt_id, value, start_loopback), out(), [&](Olt& olt) {
        if (value < 0 || value > 255 || !is_flag(start_loopback)) return PARAMETER_ERROR;
        Uart& uart = olt.configuration.uart;
        if (start_loopback == 1) uart.is_looped = true;
        if (!uart.is_looped) return SUCCESS;
        if (uart.received.size() == RECEIVER_SIZE) return NO_RESOURCES;
        uart.received += static_cast<char>(value);
        return SUCCESS;
    });
}

int16_t NEP_read_uart(int16_t olt_id, int32_t length, int32_t end_loopback, int32_t* received, uint8_t* data)
{
    return on_olt(read_uart, olt_id, in(olt_id, length, end_loopback), out(ReceivedOctets{received, data}),
                  [&](Olt& olt) {
                      if (length < 1 || length > UART_READ_LIMIT || !is_flag(end_loopback)) return PARAMETER_ERROR;
                      Uart& uart = olt.configuration.uart;
                      const std::size_t count = std::min(static_cast<std::size_t>(length), uart.received.size());
                      std::copy_n(uart.received.begin(), count, data);
                      uart.received.erase(0, count);
                      *received = static_cast<std::int32_t>(count);
                      if (end_loopback == 1) uart = {};
                      return count == 0 ? TIME_OUT : SUCCESS;
                  });
}
