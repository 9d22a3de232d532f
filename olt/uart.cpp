// SPDX-License-Identifier: Apache-2.0
// An OLT's UART, octet by octet, and its loopback by which it is tested.
#include "olt/uart.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/byte_dump.h"

using namespace epon;

int write_uart(cmd_element*, vty* session, int, char** argv)
{
    int16_t olt_id;
    int32_t value;
    int32_t start_loopback;
    if (!read_olt_id(session, argv[0], &olt_id)) return -1;
    if (!read_number(session, argv[1], unsigned_16("VALUE"), &value)) return -1;
    if (!read_word(session, argv[2], "start_loopback", true_false, &start_loopback)) return -1;
    return report(session, NEP_write_uart(olt_id, value, start_loopback));
}

int read_uart(cmd_element*, vty* session, int, char** argv)
{
    int16_t olt_id;
    int32_t length;
    int32_t end_loopback;
    if (!read_olt_id(session, argv[0], &olt_id)) return -1;
    if (!read_number(session, argv[1], unsigned_range("LENGTH", 1, UART_READ_LIMIT), &length)) return -1;
    if (!read_word(session, argv[2], "end_loopback", true_false, &end_loopback)) return -1;
    uint8_t data[UART_READ_LIMIT];
    int32_t received = 0;
    const int16_t code = NEP_read_uart(olt_id, length, end_loopback, &received, data);
    if (code != 0) return report(session, code);
    if (received < 0 || received > length) received = length;
    print_olt_id(session, olt_id);
    RBX_vty_out(session, "%s: %d %s", "length", static_cast<int>(received), VTY_NEWLINE(session));
    print_bytes(session, 0, data, static_cast<uint32_t>(received));
    return 0;
}

static constinit cmd_element write_uart_cmd =
    command("set uart olt OLT_INDEX value VALUE start-loopback (true|false)", write_uart,
            "Change a setting\n"
            "Send an octet by an OLT's UART\n"
            "Which OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "What is sent\n"
            "The octet, 0-255, decimal or with 0x hexadecimal\n"
            "The loopback by which the UART is tested\n"
            "true: close it first, so that the UART receives what it sends; false: leave it as it is\n");

static constinit cmd_element read_uart_cmd =
    command("show uart olt OLT_INDEX length LENGTH end-loopback (true|false)", read_uart,
            "Show settings and state\n"
            "Octets that an OLT's UART received\n"
            "Which OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "How many octets are read at most\n"
            "Number of octets, 1-255, decimal or with 0x hexadecimal\n"
            "The loopback by which the UART is tested\n"
            "true: open it afterwards and drop what is left; false: leave it as it is\n");

namespace epon {

void install_uart()
{
    install({{&write_uart_cmd, in(CONFIG_NODE)}, {&read_uart_cmd, in(CONFIG_NODE)}});
}

} // namespace epon
