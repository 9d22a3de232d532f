// SPDX-License-Identifier: Apache-2.0
#include "host/sdk_sim/model.h"

#include <chrono>
#include <utility>

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/sdk_sim.h"

namespace sdk_sim {

namespace {

using SteadyClock = std::chrono::steady_clock;

struct Model {
    std::mutex mutex;
    Network network;
    bool clock_runs = false;
    SteadyClock::time_point synchronized_at; // the time of day at which network.now was right
};

Model& model()
{
    static Model& instance = *new Model; // never destroyed: detached threads may outlive main
    return instance;
}

void advance(Network& network, Milliseconds until)
{
    while (!network.timers.empty() && network.timers.begin()->first <= until) {
        const auto first = network.timers.begin();
        network.now = first->first;
        const Timer timer = std::move(first->second);
        network.timers.erase(first);
        if (timer.olt_id >= 0) {
            const Olt& olt = network.olts[timer.olt_id];
            if (!olt.is_present || olt.start_count != timer.start_count) continue;
        }
        timer.action(network);
    }
    network.now = until;
}

// Brings the virtual clock up to the time of day. What is left of a millisecond stays for the next time.
void synchronize_clock(Model& m)
{
    if (!m.clock_runs) return;
    const double speed = m.network.speed;
    const SteadyClock::time_point now = SteadyClock::now();
    if (speed <= 0) {
        m.synchronized_at = now;
        return;
    }
    const std::chrono::duration<double, std::milli> passed = now - m.synchronized_at;
    const auto whole = static_cast<Milliseconds>(passed.count() * speed);
    if (whole == 0) return;
    m.synchronized_at += std::chrono::duration_cast<SteadyClock::duration>(
        std::chrono::duration<double, std::milli>(static_cast<double>(whole) / speed));
    advance(m.network, m.network.now + whole);
}

void add_timer(Network& network, Milliseconds delay, Timer timer)
{
    network.timers.emplace(network.now + delay, std::move(timer));
    wake_event_thread();
}

} // namespace

Network::Network()
{
    for (std::size_t i = 0; i < olts.size(); ++i)
        olts[i].id = static_cast<std::int16_t>(i);
}

ModelLock::ModelLock() : lock(model().mutex)
{
    synchronize_clock(model());
}

Network& ModelLock::operator*() const
{
    return model().network;
}

Network* ModelLock::operator->() const
{
    return &model().network;
}

void replace_network(Network&& network)
{
    {
        const ModelLock lock;
        *lock = std::move(network);
    }
    wake_event_thread();
}

Olt* present_olt(Network& network, std::int16_t olt_id)
{
    if (olt_id < 0 || olt_id >= OLT_INDEX_LIMIT) return nullptr;
    Olt& olt = network.olts[olt_id];
    return olt.is_present ? &olt : nullptr;
}

bool counts_as_registered(const Onu& onu)
{
    return onu.mode == ONU_MODE_REGISTERED || onu.mode == ONU_MODE_REGISTERED_UNAUTHORIZED;
}

Onu* registered_onu(Olt& olt, std::int16_t onu_id)
{
    const auto found = olt.onus.find(onu_id);
    return found != olt.onus.end() && counts_as_registered(found->second) ? &found->second : nullptr;
}

std::uint16_t count_registered(const Olt& olt)
{
    std::uint16_t count = 0;
    for (const auto& [id, onu] : olt.onus)
        if (counts_as_registered(onu)) ++count;
    return count;
}

void after(Network& network, Milliseconds delay, std::function<void(Network&)> action)
{
    add_timer(network, delay, {-1, 0, std::move(action)});
}

void after(Network& network, const Olt& olt, Milliseconds delay, std::function<void(Network&, Olt&)> action)
{
    const std::int16_t olt_id = olt.id;
    add_timer(network, delay, {olt_id, olt.start_count, [olt_id, run = std::move(action)](Network& later) {
                                   run(later, later.olts[olt_id]);
                               }});
}

void run_clock(bool on)
{
    Model& m = model();
    const std::lock_guard lock(m.mutex);
    if (on && !m.clock_runs) m.synchronized_at = SteadyClock::now();
    if (!on) synchronize_clock(m);
    m.clock_runs = on;
}

double seconds_to_next_timer()
{
    const ModelLock lock;
    const Model& m = model();
    if (!m.clock_runs || m.network.speed <= 0 || m.network.timers.empty()) return -1;
    const std::chrono::duration<double> since = SteadyClock::now() - m.synchronized_at;
    const auto virtual_ms = static_cast<double>(m.network.timers.begin()->first - m.network.now);
    return std::max(0.0, virtual_ms / 1000 / m.network.speed - since.count());
}

void advance_clock(std::uint64_t milliseconds)
{
    const ModelLock lock;
    advance(*lock, lock->now + milliseconds);
}

// splitmix64: the same sequence on every platform.
std::uint64_t random_below(Network& network, std::uint64_t limit)
{
    network.random_state += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = network.random_state;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    return (mixed ^ (mixed >> 31)) % limit;
}

std::string network_name()
{
    return ModelLock()->name;
}

} // namespace sdk_sim
