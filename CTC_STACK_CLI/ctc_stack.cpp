// SPDX-License-Identifier: Apache-2.0
// Start and stop of the CTC stack's part in the console: its commands, and the handlers of its events.
#include <iterator>

#include <epon/cli.h>

#include "CLI_GENERAL/output.h"
#include "CTC_STACK_CLI/auth.h"
#include "CTC_STACK_CLI/capabilities.h"
#include "CTC_STACK_CLI/dba_report_threshold.h"
#include "CTC_STACK_CLI/encryption.h"
#include "CTC_STACK_CLI/events.h"
#include "CTC_STACK_CLI/identity.h"
#include "CTC_STACK_CLI/multi_llid.h"
#include "CTC_STACK_CLI/params.h"
#include "CTC_STACK_CLI/power_save.h"
#include "CTC_STACK_CLI/protection.h"
#include "CTC_STACK_CLI/reset.h"
#include "CTC_STACK_CLI/stack_settings.h"
#include "CTC_STACK_CLI/tx_power.h"

namespace {

enum { HANDLERS = 5 };

constinit uint16_t handler_ids[HANDLERS] = {};

int16_t register_handlers()
{
    struct Registration {
        CtcEventType type;
        EventHandler handler;
    };
    const Registration registrations[] = {
        {CTC_EVENT_EXTENDED_OAM_DISCOVERY, reinterpret_cast<EventHandler>(Extended_oam_discovery_handler)},
        {CTC_EVENT_UPDATE_ENCRYPTION, reinterpret_cast<EventHandler>(Update_encryption_handler)},
        {CTC_EVENT_UPDATE_ONU_ERROR, reinterpret_cast<EventHandler>(Update_onu_error_handler)},
        {CTC_EVENT_UPDATE_ONU_REQUEST, reinterpret_cast<EventHandler>(Update_onu_request_handler)},
        {CTC_EVENT_NOTIFICATION, reinterpret_cast<EventHandler>(Event_notification_handler)},
    };
    static_assert(std::size(registrations) == HANDLERS);
    uint16_t* id = handler_ids;
    for (const Registration& registration : registrations) {
        const int16_t code = CTC_STACK_assign_handler_function(registration.type, registration.handler, id++);
        if (code != 0) return code;
    }
    return 0;
}

// One that cannot be removed does not keep the others.
bool delete_handlers()
{
    bool is_deleted = true;
    for (uint16_t& id : handler_ids) {
        if (CTC_STACK_delete_handler_function(id) != 0) is_deleted = false;
        id = 0;
    }
    return is_deleted;
}

} // namespace

void CTC_STACK_CLI_cmd_init()
{
    static constinit bool is_installed = false;
    if (is_installed) return;
    is_installed = true;
    epon::install_ctc_params();
    epon::install_ctc_stack_settings();
    epon::install_ctc_encryption();
    epon::install_dba_report_threshold();
    epon::install_ctc_identity();
    epon::install_ctc_capabilities();
    epon::install_ctc_auth();
    epon::install_ctc_reset();
    epon::install_ctc_tx_power();
    epon::install_ctc_protection();
    epon::install_ctc_power_save();
    epon::install_ctc_multi_llid();
}

int CLI_ctc_init()
{
    epon::trace_api_call(epon::CTC_STACK_MODULE, __func__);
    CTC_STACK_CLI_cmd_init();
    epon::print_to_notified(register_handlers() == 0 ? "CTC STACK Handler functions assignment success\n"
                                                     : "CTC STACK Handler functions assignment failure\n",
                            "");
    return 0;
}

int CLI_ctc_terminate()
{
    epon::trace_api_call(epon::CTC_STACK_MODULE, __func__);
    epon::print_to_notified(delete_handlers() ? "CTC STACK Handler functions termination success\n"
                                              : "CTC STACK Handler functions termination failure\n",
                            "");
    return CTC_STACK_terminate();
}
