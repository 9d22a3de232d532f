// SPDX-License-Identifier: Apache-2.0
// Routines that the host puts in the place of the library's own, or beside them. The library calls the first two and
// keeps the others for the packages that ask for them.
#include <epon/cli.h>

#include "CLI_GENERAL/output.h"

constinit cli_runtime_handler* cli_runtime_init_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_terminate_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_ctc_init_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_ctc_terminate_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_ctc_kt_init_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_ctc_kt_terminate_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_tk_init_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_tk_terminate_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_meridian_init_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_meridian_terminate_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_docsis_stack_init_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_docsis_stack_terminate_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_dpoe_oam_init_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_dpoe_oam_terminate_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_remote_management_init_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_remote_management_terminate_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_redundancy_mng_init_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_redundancy_mng_terminate_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_ctc_redundancy_mng_init_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_ctc_redundancy_mng_terminate_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_redundancy_mng_app_init_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_redundancy_mng_app_terminate_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_optical_switch_init_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_optical_switch_terminate_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_extensions_init_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_extensions_terminate_handler_func = nullptr;
constinit cli_runtime_handler* cli_runtime_ext_tm_init_handler_func = nullptr;

namespace {

int store(const char* function, cli_runtime_handler** slot, cli_runtime_handler* func)
{
    epon::trace_api_call("CLI_GENERAL/CLI ", function);
    *slot = func;
    return 0;
}

} // namespace

int CLI_register_init_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_init_handler_func, func);
}

int CLI_register_terminate_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_terminate_handler_func, func);
}

int CLI_register_ctc_init_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_ctc_init_handler_func, func);
}

int CLI_register_ctc_terminate_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_ctc_terminate_handler_func, func);
}

int CLI_register_ctc_kt_init_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_ctc_kt_init_handler_func, func);
}

int CLI_register_ctc_kt_terminate_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_ctc_kt_terminate_handler_func, func);
}

int CLI_register_tk_init_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_tk_init_handler_func, func);
}

int CLI_register_tk_terminate_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_tk_terminate_handler_func, func);
}

int CLI_register_meridian_init_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_meridian_init_handler_func, func);
}

int CLI_register_meridian_terminate_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_meridian_terminate_handler_func, func);
}

int CLI_register_docsis_stack_init_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_docsis_stack_init_handler_func, func);
}

int CLI_register_docsis_stack_terminate_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_docsis_stack_terminate_handler_func, func);
}

int CLI_register_dpoe_oam_init_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_dpoe_oam_init_handler_func, func);
}

int CLI_register_dpoe_oam_terminate_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_dpoe_oam_terminate_handler_func, func);
}

int CLI_register_remote_management_init_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_remote_management_init_handler_func, func);
}

int CLI_register_remote_management_terminate_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_remote_management_terminate_handler_func, func);
}

int CLI_register_redundancy_mng_init_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_redundancy_mng_init_handler_func, func);
}

int CLI_register_redundancy_mng_terminate_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_redundancy_mng_terminate_handler_func, func);
}

int CLI_register_ctc_redundancy_mng_init_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_ctc_redundancy_mng_init_handler_func, func);
}

int CLI_register_ctc_redundancy_mng_terminate_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_ctc_redundancy_mng_terminate_handler_func, func);
}

int CLI_register_redundancy_mng_app_init_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_redundancy_mng_app_init_handler_func, func);
}

int CLI_register_redundancy_mng_app_terminate_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_redundancy_mng_app_terminate_handler_func, func);
}

int CLI_register_optical_switch_init_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_optical_switch_init_handler_func, func);
}

int CLI_register_optical_switch_terminate_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_optical_switch_terminate_handler_func, func);
}

int CLI_register_extensions_init_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_extensions_init_handler_func, func);
}

int CLI_register_extensions_terminate_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_extensions_terminate_handler_func, func);
}

int CLI_register_ext_tm_init_func(cli_runtime_handler* func)
{
    return store(__func__, &cli_runtime_ext_tm_init_handler_func, func);
}
