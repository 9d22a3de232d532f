// SPDX-License-Identifier: Apache-2.0
// SDK events on the operator's own session, or not.
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/general.h"

namespace {

// SDK threads read the flag while they walk the sessions.
int set_event_notify(vty* session, uint8_t state)
{
    __atomic_store_n(&session->event_notify, state, __ATOMIC_RELAXED);
    return 0;
}

} // namespace

int event_notify(cmd_element*, vty* session, int, char**)
{
    return set_event_notify(session, 1);
}

int no_event_notify(cmd_element*, vty* session, int, char**)
{
    return set_event_notify(session, 0);
}

static constinit cmd_element event_notify_cmd =
    epon::command("event-notify", event_notify, "Print events of the OLTs and ONUs on this session as they happen\n");

static constinit cmd_element event_notify_enable_cmd =
    epon::command("event-notify enable", event_notify,
                  "Print events of the OLTs and ONUs on this session as they happen\n"
                  "The same as event-notify alone\n");

static constinit cmd_element no_event_notify_cmd = epon::command("no event-notify", no_event_notify,
                                                                 "Turn a setting off, or take an object away\n"
                                                                 "Print no more events on this session\n");

namespace epon {

void install_event_notify()
{
    constexpr NodeSet nodes = in(VIEW_NODE, ENABLE_NODE, CONFIG_NODE, OLT_NODE);
    install({{&event_notify_cmd, nodes}, {&event_notify_enable_cmd, nodes}, {&no_event_notify_cmd, nodes}});
}

} // namespace epon
