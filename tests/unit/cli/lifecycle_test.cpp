// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cstring>
#include <iterator>
#include <map>
#include <sstream>

#include "console_fixture.h"

namespace {

const std::vector<int> registered_kinds = {2,  4,  3,  5,  9,  12, 15, 16, 13, 19, 14, 22, 25, 6,  7,  8,  26, 28, 1,
                                           29, 30, 31, 34, 35, 37, 36, 38, 39, 40, 43, 44, 45, 46, 50, 47, 48, 49, 51};
const std::vector<int> deleted_slots = {2, 4,  3,  5,  9,  12, 15, 16, 13, 19, 14, 22, 25, 6,  7,  8,  26, 27, 28,
                                        1, 34, 29, 30, 31, 35, 36, 38, 39, 40, 43, 44, 45, 46, 50, 47, 48, 49};

int calls_of_first;
int calls_of_second;

int first_hook()
{
    ++calls_of_first;
    return -5;
}

int second_hook()
{
    ++calls_of_second;
    return 0;
}

class Lifecycle : public Console {
  protected:
    Lifecycle()
    {
        std::fill(std::begin(cli_handler_id_array), std::end(cli_handler_id_array), uint16_t{0});
        calls_of_first = calls_of_second = 0;
        sdk_sim::take_log();
        journal();
    }

    ~Lifecycle() override
    {
        CLI_register_init_func(nullptr);
        CLI_register_terminate_func(nullptr);
        CLI_set_port(0);
    }

    // First number after the opening parenthesis of each journaled call of an operation.
    static std::vector<int> first_arguments(const std::vector<std::string>& calls, const std::string& operation)
    {
        std::vector<int> arguments;
        for (const std::string& call : calls) {
            if (call.starts_with(operation + "(")) arguments.push_back(std::stoi(call.substr(operation.size() + 1)));
        }
        return arguments;
    }

    static std::string information()
    {
        char buffer[CLI_INFORMATION_SIZE];
        EXPECT_EQ(CLI_information(buffer), 0);
        return buffer;
    }
};

TEST_F(Lifecycle, RegistersThirtyEightPrintersInOrder)
{
    ASSERT_EQ(CLI_initialization(), 0);
    const std::vector<std::string> calls = journal();
    EXPECT_EQ(calls.size(), 38u);
    EXPECT_EQ(first_arguments(calls, "NEP_assign_handler_function"), registered_kinds);
}

TEST_F(Lifecycle, IdsGoToTheSlotsOfTheirKinds)
{
    ASSERT_EQ(CLI_initialization(), 0);
    std::map<int, uint16_t> ids; // the SDK counts from 1
    for (size_t i = 0; i < registered_kinds.size(); ++i)
        ids[registered_kinds[i]] = static_cast<uint16_t>(i + 1);
    for (int slot = 0; slot < EVENT_KIND_LIMIT; ++slot) {
        const bool is_filled = ids.contains(slot) && slot != 30 && slot != 31;
        const uint16_t expected = slot == 30 ? ids[31] : is_filled ? ids[slot] : uint16_t{0};
        EXPECT_EQ(cli_handler_id_array[slot], expected) << slot;
    }
}

TEST_F(Lifecycle, DeletesThirtySevenSlotsInOrder)
{
    ASSERT_EQ(CLI_initialization(), 0);
    std::vector<int> expected;
    for (const int slot : deleted_slots)
        expected.push_back(cli_handler_id_array[slot]);
    journal();
    ASSERT_EQ(CLI_termination(), 0);
    const std::vector<std::string> calls = journal();
    EXPECT_EQ(calls.size(), 37u);
    EXPECT_EQ(first_arguments(calls, "NEP_delete_handler_function"), expected);
}

TEST_F(Lifecycle, AFailingRegistrationEndsIt)
{
    inject("NEP_assign_handler_function", -11, 1, 4); // the fifth: kind 9
    EXPECT_EQ(CLI_initialization(), -1);
    EXPECT_EQ(first_arguments(journal(), "NEP_assign_handler_function"), (std::vector<int>{2, 4, 3, 5, 9}));
    for (const int kind : {2, 4, 3, 5})
        EXPECT_NE(cli_handler_id_array[kind], 0) << kind;
    for (int slot : {9, 12, 15, 16, 30, 51})
        EXPECT_EQ(cli_handler_id_array[slot], 0) << slot;
}

TEST_F(Lifecycle, AFailingDeletionEndsItAndKeepsThePort)
{
    ASSERT_EQ(CLI_initialization(), 0);
    CLI_set_port(3000);
    inject("NEP_delete_handler_function", -1, 1, 2);
    journal();
    EXPECT_EQ(CLI_termination(), -1);
    EXPECT_EQ(journal().size(), 3u);
    EXPECT_EQ(information(), "CLI version : 2.0\nCLI Port : 3000\n");
}

TEST_F(Lifecycle, TheDriverHidesFailures)
{
    inject("NEP_assign_handler_function", -11);
    EXPECT_EQ(init_epon_driver(), 0);
    inject("NEP_delete_handler_function", -1);
    EXPECT_EQ(terminate_epon_driver(), 0);
}

TEST_F(Lifecycle, AnInitHookReplacesTheRegistration)
{
    EXPECT_EQ(CLI_register_init_func(first_hook), 0);
    EXPECT_EQ(init_epon_driver(), 0);
    EXPECT_EQ(calls_of_first, 1);
    EXPECT_TRUE(journal().empty());
}

TEST_F(Lifecycle, ATerminateHookReplacesTheDeletion)
{
    CLI_register_terminate_func(first_hook);
    EXPECT_EQ(terminate_epon_driver(), 0);
    EXPECT_EQ(calls_of_first, 1);
    EXPECT_TRUE(journal().empty());
}

TEST_F(Lifecycle, TheSecondHookReplacesTheFirstAndNullClearsIt)
{
    CLI_register_init_func(first_hook);
    CLI_register_init_func(second_hook);
    init_epon_driver();
    EXPECT_EQ(calls_of_first, 0);
    EXPECT_EQ(calls_of_second, 1);
    CLI_register_init_func(nullptr);
    init_epon_driver();
    EXPECT_EQ(calls_of_second, 1);
    EXPECT_EQ(journal().size(), 38u);
}

TEST_F(Lifecycle, EveryHookHasItsOwnSlotAndTrace)
{
    struct Hook {
        const char* name;
        int (*store)(cli_runtime_handler* func);
        cli_runtime_handler** slot;
    };
#define HOOK(name)                                                                                                     \
    {                                                                                                                  \
        "CLI_register_" #name "_func", CLI_register_##name##_func, &cli_runtime_##name##_handler_func                  \
    }
    const Hook hooks[] = {
        HOOK(init),
        HOOK(terminate),
        HOOK(ctc_init),
        HOOK(ctc_terminate),
        HOOK(ctc_kt_init),
        HOOK(ctc_kt_terminate),
        HOOK(tk_init),
        HOOK(tk_terminate),
        HOOK(meridian_init),
        HOOK(meridian_terminate),
        HOOK(docsis_stack_init),
        HOOK(docsis_stack_terminate),
        HOOK(dpoe_oam_init),
        HOOK(dpoe_oam_terminate),
        HOOK(remote_management_init),
        HOOK(remote_management_terminate),
        HOOK(redundancy_mng_init),
        HOOK(redundancy_mng_terminate),
        HOOK(ctc_redundancy_mng_init),
        HOOK(ctc_redundancy_mng_terminate),
        HOOK(redundancy_mng_app_init),
        HOOK(redundancy_mng_app_terminate),
        HOOK(optical_switch_init),
        HOOK(optical_switch_terminate),
        HOOK(extensions_init),
        HOOK(extensions_terminate),
        HOOK(ext_tm_init),
    };
#undef HOOK
    static_assert(std::size(hooks) == 27);
    for (const Hook& hook : hooks) {
        SCOPED_TRACE(hook.name);
        EXPECT_EQ(*hook.slot, nullptr);
        EXPECT_EQ(hook.store(first_hook), 0);
        EXPECT_EQ(*hook.slot, first_hook);
        int stored = 0;
        for (const Hook& other : hooks)
            stored += *other.slot != nullptr;
        EXPECT_EQ(stored, 1);
        EXPECT_EQ(hook.store(nullptr), 0);
        EXPECT_EQ(*hook.slot, nullptr);
        const std::string line = std::string("api-called|CLI_GENERAL/CLI |-1|-1|") + hook.name + " API Called.\n";
        EXPECT_EQ(sdk_sim::take_log(), (std::vector<std::string>{line, line}));
    }
}

TEST_F(Lifecycle, InformationNamesVersionAndPort)
{
    EXPECT_EQ(information(), "CLI version : 2.0\nCLI Port : 2600\n");
    CLI_set_port(3000);
    EXPECT_EQ(information(), "CLI version : 2.0\nCLI Port : 3000\n");
    ASSERT_EQ(CLI_initialization(), 0);
    ASSERT_EQ(CLI_termination(), 0);
    EXPECT_EQ(information(), "CLI version : 2.0\nCLI Port : 2600\n");
    EXPECT_EQ(sdk_sim::take_log().front(), "api-called|CLI_GENERAL/CLI |-1|-1|CLI_information API Called.\n");
}

TEST_F(Lifecycle, EntryPointsAreTraced)
{
    CLI_initialization();
    CLI_termination();
    const std::vector<std::string> expected = {
        "api-called|CLI_GENERAL/CLI |-1|-1|CLI_initialization API Called.\n",
        "api-called|CLI_GENERAL/CLI |-1|-1|CLI_termination API Called.\n",
    };
    EXPECT_EQ(sdk_sim::take_log(), expected);
}

// Node and grammar of every command, with its number of installations.
std::map<std::string, int> installed_commands()
{
    std::map<std::string, int> commands;
    engine::for_each_element(engine::Origin::Library, [&](int node, const cmd_element& element) {
        ++commands[std::to_string(node) + " " + element.string];
    });
    return commands;
}

TEST_F(Lifecycle, ASecondInstallationInstallsNothing)
{
    const std::map<std::string, int> before = installed_commands();
    ASSERT_FALSE(before.empty());
    for (void (*installer)() : {General_cmd_init,
                                CLI_CNI_cmd_init,
                                CLI_DEBUG_cmd_init,
                                CLI_logging_cmd_init,
                                CLI_OLT_cmd_init,
                                CLI_mode1_cmd_init,
                                CLI_ONU_cmd_init,
                                CLI_PS_cmd_init,
                                CLI_statistic_cmd_init,
                                CLI_syncE_cmd_init,
                                CLI_ToD_cmd_init,
                                CLI_OLT_virtual_scope_cmd_init,
                                CLI_dos_protection_cmd_init,
                                CLI_mc_cmd_init,
                                INTERNAL_DBA_CLI_cmd_init,
                                VIREO_CLI_cmd_init,
                                OPEN_ENCRYPTION_CLI_cmd_init,
                                DBA_CLI_cmd_init,
                                XAUI_REDUNDANCY_CLI_cmd_init,
                                TM_CLI_cmd_init,
                                NE_CLI_cmd_init,
                                AT_CLI_cmd_init,
                                CASCADING_CLI_cmd_init,
                                OTDR_cli_cmd_init,
                                PTP_STACK_CLI_cmd_init,
                                CTC_STACK_CLI_cmd_init,
                                REMOTE_MANAGEMENT_CLI_cmd_init,
                                REMOTE_MANAGEMENT_CLI_sxg_cmd_init}) {
        installer();
    }
    EXPECT_EQ(installed_commands(), before);
}

TEST_F(Lifecycle, OneElementServesSeveralNodes)
{
    std::map<const cmd_element*, int> nodes;
    engine::for_each_element(engine::Origin::Library, [&](int, const cmd_element& element) { ++nodes[&element]; });
    int shared = 0;
    for (const auto& [element, count] : nodes) {
        shared += count > 1;
        EXPECT_GT(element->cmdsize, 0);
        EXPECT_NE(element->strvec, nullptr);
        EXPECT_EQ(element->daemon, 0);
        EXPECT_EQ(element->attr, 0);
        EXPECT_EQ(std::count(element->doc, element->doc + strlen(element->doc), '\n'), element->cmdsize)
            << element->string;
    }
    EXPECT_GT(shared, 0);
}

TEST_F(Lifecycle, NodesHaveTheirPrompts)
{
    const std::vector<std::pair<int, const char*>> prompts = {
        {AUTH_NODE, "Password: "},
        {VIEW_NODE, "LAB> "},
        {VELORA_NODE, "VNS CLI> "},
        {VELORA_DEBUG_NODE, "DEBUG CLI> "},
        {AUTH_ENABLE_NODE, "Password: "},
        {ENABLE_NODE, "LAB# "},
        {CONFIG_NODE, "LAB(config)# "},
        {OLT_NODE, "LAB(OLT5)# "},
        {NEP5400_OLT_NODE, "LAB(OLT5)# "},
        {ONU_NODE, "LAB(OLT5 ONU 7)# "},
        {LLID_NODE, "LAB(OLT5 LLID 9)# "},
        {NEP5400_LLID_NODE, "LAB(OLT5 LLID 9)# "},
        {BC_LLID_NODE, "LAB(OLT5 LLID-BROADCAST)# "},
        {NEP5400_BC_LLID_NODE, "LAB(OLT5 LLID-BROADCAST)# "},
        {OLT_PON_NODE, "LAB(OLT5 PON)# "},
        {NEP5400_OLT_PON_NODE, "LAB(OLT5 PON)# "},
        {CNI_NODE, "LAB(OLT5 CNI)# "},
        {NEP5400_CNI_NODE, "LAB(OLT5 CNI)# "},
        {OLT_FW_CRAFT_NODE, "LAB(OLT5 FW_CRAFT)# "},
        {ONU_PON_NODE, "LAB(OLT5 ONU 7 PON)# "},
        {UNI_NODE, "LAB(OLT5 ONU 7 UNI)# "},
        {DBA_INTERNAL_NODE, "LAB(OLT5 DBA(Internal))# "},
        {DBA_VIREO4_NODE, "LAB(OLT5 DBA(Vireo))# "},
        {ONU_CLI_NODE, "LAB(OLT5 ONU 7 CLI)# "},
    };
    session->onu_id = 7;
    session->llid = 9;
    session->onu_by_index = 1;
    for (const auto& [node, expected] : prompts) {
        enter(node, 5);
        EXPECT_EQ(engine::prompt(session), expected);
    }
    // Entered by MAC address, the prompts show the address as it was typed.
    strcpy(session->onu_mac, "00-0D-b6-1-2-3");
    session->onu_by_index = 0;
    enter(ONU_NODE, 5);
    EXPECT_EQ(engine::prompt(session), "LAB(OLT5 ONU 00-0D-b6-1-2-3)# ");
    enter(UNI_NODE, 5);
    EXPECT_EQ(engine::prompt(session), "LAB(OLT5 ONU 00-0D-b6-1-2-3 UNI)# ");
    enter(LLID_NODE, 5);
    EXPECT_EQ(engine::prompt(session), "LAB(OLT5 LLID 00-0D-b6-1-2-3)# ");
    enter(CONFIG_NODE, 0);
}

} // namespace
