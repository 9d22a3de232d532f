// SPDX-License-Identifier: Apache-2.0
// Operations by name, and the faults that wait for them.
#include "host/sdk_sim/gate.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <mutex>
#include <string_view>
#include <thread>

namespace sdk_sim {

namespace {

// Filled while the library is loaded, by the constructors of the operations.
constinit const Operation* first_operation = nullptr;

struct FaultList {
    std::mutex mutex;
    std::vector<Fault> faults;         // of one operation, the first one injected comes first
    std::atomic<bool> is_empty = true; // so that a call without faults takes no lock
};

FaultList& fault_list()
{
    static FaultList& list = *new FaultList; // never destroyed: detached threads may outlive main
    return list;
}

const Operation* find_operation(std::string_view name)
{
    for (const Operation* operation = first_operation; operation != nullptr; operation = operation->next)
        if (name == operation->name) return operation;
    return nullptr;
}

} // namespace

Operation::Operation(const char* operation_name, const Family& operation_family)
    : name(operation_name), family(operation_family), next(first_operation)
{
    first_operation = this;
}

Verdict meet_faults(const Operation& operation)
{
    FaultList& list = fault_list();
    if (list.is_empty.load(std::memory_order_acquire)) return {};
    Verdict verdict;
    std::uint32_t delay_ms = 0;
    {
        const std::lock_guard lock(list.mutex);
        const auto fault = std::find_if(list.faults.begin(), list.faults.end(),
                                        [&](const Fault& candidate) { return candidate.operation == operation.name; });
        if (fault == list.faults.end()) return {};
        if (fault->skip > 0) {
            --fault->skip;
            return {};
        }
        verdict = {true, fault->after, fault->code};
        delay_ms = fault->delay_ms;
        if (--fault->count == 0) list.faults.erase(fault);
        list.is_empty.store(list.faults.empty(), std::memory_order_release);
    }
    if (delay_ms != 0) std::this_thread::sleep_for(std::chrono::milliseconds(delay_ms));
    return verdict;
}

bool inject(const Fault& fault)
{
    if (find_operation(fault.operation) == nullptr) return false;
    if (fault.count == 0) return true;
    FaultList& list = fault_list();
    const std::lock_guard lock(list.mutex);
    list.faults.push_back(fault);
    list.is_empty.store(false, std::memory_order_release);
    return true;
}

void clear_faults()
{
    FaultList& list = fault_list();
    const std::lock_guard lock(list.mutex);
    list.faults.clear();
    list.is_empty.store(true, std::memory_order_release);
}

std::vector<Fault> faults()
{
    FaultList& list = fault_list();
    const std::lock_guard lock(list.mutex);
    return list.faults;
}

std::vector<std::string> operations()
{
    std::vector<std::string> names;
    for (const Operation* operation = first_operation; operation != nullptr; operation = operation->next)
        names.emplace_back(operation->name);
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace sdk_sim
