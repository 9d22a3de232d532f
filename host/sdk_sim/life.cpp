// SPDX-License-Identifier: Apache-2.0
#include "host/sdk_sim/life.h"

#include "host/sdk_sim/ctc_discovery.h"
#include "host/sdk_sim/events.h"
#include "host/sdk_sim/sdk_sim.h"

namespace sdk_sim {

namespace {

enum OltState { OLT_ABSENT = 0, OLT_STARTING = 1, OLT_OPERATIONAL = 2 };
enum RefusalReason { REFUSED_NOT_AUTHORIZED = 0, REFUSED_BLACK_LISTED = 1 };

void raise_olt_state(const Olt& olt, OltState state)
{
    raise(EVENT_OLT_STATE_CHANGED, olt.id, OltStateChangedEvent{state});
}

void copy_mac(std::uint8_t out[6], const Mac& mac)
{
    for (std::size_t i = 0; i < mac.size(); ++i)
        out[i] = mac[i];
}

// False, with the event, when the OLT does not admit the ONU.
bool admit_onu(const Olt& olt, Onu& onu)
{
    const Admission result = admission(olt, onu);
    if (result == Admission::Unauthorized) onu.mode = ONU_MODE_REGISTERED_UNAUTHORIZED;
    if (result == Admission::Admitted || result == Admission::Unauthorized) return true;
    onu.mode = ONU_MODE_UNREGISTERED;
    OnuRegistrationRefusedEvent event{};
    copy_mac(event.mac, onu.mac);
    event.reason = result == Admission::BlackListed ? REFUSED_BLACK_LISTED : REFUSED_NOT_AUTHORIZED;
    raise(EVENT_ONU_REGISTRATION_REFUSED, olt.id, event);
    return false;
}

void register_onu_after(Network& network, const Olt& olt, std::int16_t onu_id, Milliseconds delay)
{
    after(network, olt, delay,
          [onu_id](Network& later, Olt& of_onu) { register_onu(later, of_onu, of_onu.onus.at(onu_id)); });
}

// Between half and one and a half times the mean.
Milliseconds random_time(Network& network, Milliseconds mean)
{
    return mean / 2 + random_below(network, mean + 1);
}

// Any registered ONU of the network; null when there is none.
Onu* random_onu(Network& network, Olt** of_olt)
{
    std::size_t count = 0;
    for (const Olt& olt : network.olts)
        if (olt.is_present) count += count_registered(olt);
    if (count == 0) return nullptr;
    std::uint64_t remaining = random_below(network, count);
    for (Olt& olt : network.olts) {
        if (!olt.is_present) continue;
        for (auto& [id, onu] : olt.onus) {
            if (!counts_as_registered(onu)) continue;
            if (remaining-- == 0) {
                *of_olt = &olt;
                return &onu;
            }
        }
    }
    return nullptr;
}

void schedule_leaving(Network& network)
{
    if (network.life.leave_interval == 0) return;
    after(network, random_time(network, network.life.leave_interval), [](Network& later) {
        constexpr DeregistrationReason reasons[] = {DeregistrationReason::MpcpTimeout, DeregistrationReason::OamTimeout,
                                                    DeregistrationReason::ByOnu};
        Olt* olt = nullptr;
        if (Onu* onu = random_onu(later, &olt)) {
            deregister_onu(*olt, *onu, reasons[random_below(later, std::size(reasons))]);
            register_onu_after(later, *olt, onu->id, random_time(later, later.life.absence));
        }
        schedule_leaving(later);
    });
}

void raise_alarm(const Olt& olt, std::int16_t onu_id, std::int32_t alarm, bool raised, std::uint32_t value)
{
    raise(EVENT_ALARM, olt.id, AlarmEvent{onu_id, alarm, raised, value});
    notify_of_alarm(olt.id, olt.onus.at(onu_id), alarm, raised, value);
}

void schedule_alarm(Network& network)
{
    if (network.life.alarm_interval == 0) return;
    after(network, random_time(network, network.life.alarm_interval), [](Network& later) {
        // ber, fer, local-link, dying-gasp, errored-frame, onu-signal-degradation
        constexpr std::int32_t alarms[] = {0, 1, 3, 4, 10, 19};
        Olt* olt = nullptr;
        if (const Onu* onu = random_onu(later, &olt)) {
            const std::int32_t alarm = alarms[random_below(later, std::size(alarms))];
            const auto value = static_cast<std::uint32_t>(1 + random_below(later, 1000));
            const std::int16_t onu_id = onu->id;
            raise_alarm(*olt, onu_id, alarm, true, value);
            after(later, *olt, random_time(later, later.life.alarm_duration),
                  [onu_id, alarm](Network&, Olt& of_alarm) { raise_alarm(of_alarm, onu_id, alarm, false, 0); });
        }
        schedule_alarm(later);
    });
}

} // namespace

void register_onu(Network& network, Olt& olt, Onu& onu)
{
    if (counts_as_registered(onu)) return;
    if (!hears_olt(olt, onu) || !transmits(onu)) return; // no discovery reaches it, or no answer comes back
    onu.mode = onu.home_mode;
    if (!counts_as_registered(onu)) return;
    if (!admit_onu(olt, onu)) {
        return_onu(network, olt, onu.id);
        return;
    }
    onu.registered_at = network.now;
    OnuRegisteredEvent event{};
    event.onu_id = onu.id;
    copy_mac(event.mac, onu.mac);
    event.rate = static_cast<std::int32_t>(onu.rate);
    event.rtt = onu.rtt;
    raise(EVENT_ONU_REGISTERED, olt.id, event);
    follow_oam_link(network, olt, onu);
}

void register_onus(Network& network, const Olt& olt)
{
    Milliseconds delay = network.life.registration_time;
    for (const auto& [id, onu] : olt.onus) {
        register_onu_after(network, olt, id, delay);
        delay += network.life.registration_step;
    }
}

void start_olt(Network& network, Olt& olt)
{
    olt.is_present = true;
    olt.started_at = network.now;
    ++olt.start_count;
    carry_out_pre_init_operations(olt);
    raise_olt_state(olt, OLT_STARTING);
    after(network, olt, network.life.start_time, [](Network& later, Olt& started) {
        raise_olt_state(started, OLT_OPERATIONAL);
        register_onus(later, started);
    });
}

void end_olt(Olt& olt)
{
    olt.is_present = false;
    for (auto& [id, onu] : olt.onus)
        deregister_onu(olt, onu, DeregistrationReason::OltReset);
    raise_olt_state(olt, OLT_ABSENT);
}

void deregister_onu(Olt& olt, Onu& onu, DeregistrationReason reason)
{
    const bool was_registered = counts_as_registered(onu);
    onu.mode = ONU_MODE_UNREGISTERED;
    if (was_registered) remember_ctc_settings(onu);
    onu.configuration = onu.initial_configuration;
    if (!was_registered) return;
    OnuDeregisteredEvent event{};
    event.onu_id = onu.id;
    copy_mac(event.mac, onu.mac);
    event.reason = static_cast<std::int32_t>(reason);
    raise(EVENT_ONU_DEREGISTERED, olt.id, event);
}

void return_onu(Network& network, const Olt& olt, std::int16_t onu_id)
{
    if (network.life.return_time != 0) register_onu_after(network, olt, onu_id, network.life.return_time);
}

void begin_life(Network& network)
{
    network.random_state = network.life.seed;
    settle_ctc_discoveries(network);
    schedule_leaving(network);
    schedule_alarm(network);
}

bool remove_olt(std::int16_t olt_id)
{
    const ModelLock model;
    Olt* olt = present_olt(*model, olt_id);
    if (olt == nullptr) return false;
    olt->is_powered = false;
    end_olt(*olt);
    return true;
}

bool return_olt(std::int16_t olt_id)
{
    const ModelLock model;
    if (olt_id < 0 || olt_id >= OLT_INDEX_LIMIT) return false;
    Olt& olt = model->olts[olt_id];
    if (!olt.is_known || olt.is_present) return false;
    olt.is_powered = true;
    start_olt(*model, olt);
    return true;
}

} // namespace sdk_sim
