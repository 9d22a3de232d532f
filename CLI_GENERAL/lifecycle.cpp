// SPDX-License-Identifier: Apache-2.0
// Start and stop of the library: SDK event printers, console, optional packages.
#include <cstdio>

#include <epon/cli.h>

#include "CLI_GENERAL/events.h"
#include "CLI_GENERAL/output.h"

namespace {

enum { DEFAULT_PORT = 2600 };

constexpr const char* SOCKET_PATH = "/var/run/zebra.vty";
constexpr const char* ENTRY_POINTS = "CLI_GENERAL/CLI "; // the SDK log names them with this trailing blank
constexpr const char* ACTIVATION = "CLI_GENERAL/CLI";

constinit unsigned short console_port = 0; // 0: the default; set by any thread, read by the server

unsigned short served_port()
{
    const unsigned short port = __atomic_load_n(&console_port, __ATOMIC_RELAXED);
    return port != 0 ? port : static_cast<unsigned short>(DEFAULT_PORT);
}

// Every handler runs on this thread.
void* console_server(void*)
{
    thread work;
    for (;;) {
        RBX_vty_serv_sock(nullptr, served_port(), SOCKET_PATH);
        while (RBX_thread_fetch(zebrad, &work) != nullptr) {
            RBX_thread_call(&work);
            if (__atomic_load_n(&RBX_vty_kill_all_flag, __ATOMIC_RELAXED) != 0) RBX_vty_kill_all();
        }
    }
}

} // namespace

constinit thread_master* zebrad = nullptr;

int init_epon_driver()
{
    if (cli_runtime_init_handler_func != nullptr) {
        cli_runtime_init_handler_func();
    } else {
        CLI_initialization();
    }
    return 0;
}

int terminate_epon_driver()
{
    if (cli_runtime_terminate_handler_func != nullptr) {
        cli_runtime_terminate_handler_func();
    } else {
        CLI_termination();
    }
    return 0;
}

int CLI_initialization()
{
    epon::trace_api_call(ENTRY_POINTS, __func__);
    return epon::register_event_printers();
}

int CLI_termination()
{
    epon::trace_api_call(ENTRY_POINTS, __func__);
    if (epon::delete_event_printers() != 0) return -1;
    CLI_set_port(0);
    return 0;
}

int CLI_information(char* buffer)
{
    epon::trace_api_call(ENTRY_POINTS, __func__);
    snprintf(buffer, CLI_INFORMATION_SIZE, "CLI version : %d.%d\nCLI Port : %d\n", 2, 0, served_port());
    return 0;
}

int CLI_activate()
{
    epon::trace_api_call(ACTIVATION, __func__);
    zebrad = RBX_thread_master_create();
    CLI_set_all_olts_dba_mode(0);
    RBX_cmd_init();
    General_cmd_init();
    INTERNAL_DBA_CLI_cmd_init();
    VIREO_CLI_cmd_init();
    OPEN_ENCRYPTION_CLI_cmd_init();
    DBA_CLI_cmd_init();
    XAUI_REDUNDANCY_CLI_cmd_init();
    TM_CLI_cmd_init();
    NE_CLI_cmd_init();
    AT_CLI_cmd_init();
    CASCADING_CLI_cmd_init();
    OTDR_cli_cmd_init();
    PTP_STACK_CLI_cmd_init();
    RBX_vty_init(zebrad);
    RBX_vty_config_password();
    OSSRV_create_thread("console", console_server, nullptr);
    return 0;
}

// A package that does not start has no commands; the others start all the same.
int init_packages()
{
    epon::trace_api_call(ENTRY_POINTS, __func__);
    CLI_ctc_init();
    CLI_remote_management_init();
    return 0;
}

int terminate_packages()
{
    epon::trace_api_call(ENTRY_POINTS, __func__);
    CLI_ctc_terminate();
    return 0;
}

void CLI_set_port(unsigned short port)
{
    __atomic_store_n(&console_port, port, __ATOMIC_RELAXED);
}

void CLI_set_multi_tasking_mode(int mode)
{
    RBX_vty_set_multi_tasking_mode(static_cast<uint8_t>(mode & 0xFF));
}

void CLI_get_multi_tasking_mode(uint8_t* mode)
{
    RBX_vty_get_multi_tasking_mode(mode);
}
