// SPDX-License-Identifier: Apache-2.0
// An OLT's test of its own hardware. Its result arrives as an event.
#include "olt/self_test.h"

#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

int self_test(cmd_element*, vty* session, int, char**)
{
    return report(session, NEP_olt_self_test(session->olt_id));
}

static constinit cmd_element self_test_cmd =
    command("self-test", self_test, "Test this OLT's own hardware; the event self-test-completed tells the result\n");

namespace epon {

void install_self_test()
{
    install({{&self_test_cmd, in(OLT_NODE)}});
}

} // namespace epon
