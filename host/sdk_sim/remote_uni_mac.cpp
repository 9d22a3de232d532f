// SPDX-License-Identifier: Apache-2.0
// The first user port of an ONU: its link is what port and partner agree on (IEEE 802.3 annex 28B).
#include "host/sdk_sim/remote_uni_mac.h"

#include <bitset>
#include <iterator>

#include "host/sdk_sim/remote_operation.h"
#include "host/sdk_sim/scenario_reader.h"

namespace sdk_sim {

using UniConfiguration = REMOTE_uni_port_configuration;

template <>
inline constexpr auto record_fields<REMOTE_uni_port_configuration> = std::tuple(
    record_field("mac_type", &UniConfiguration::mac_type), record_field("mii_rate", &UniConfiguration::mii_rate),
    record_field("duplex", &UniConfiguration::duplex),
    record_field("gmii_master_mode", &UniConfiguration::gmii_master_mode),
    record_field("auto_negotiate", &UniConfiguration::auto_negotiate), record_field("mode", &UniConfiguration::mode),
    record_field("advertise", &UniConfiguration::advertise),
    record_field("adv_10_half", &UniConfiguration::adv_10_half),
    record_field("adv_10_full", &UniConfiguration::adv_10_full),
    record_field("adv_100_half", &UniConfiguration::adv_100_half),
    record_field("adv_100_full", &UniConfiguration::adv_100_full),
    record_field("adv_100_t4", &UniConfiguration::adv_100_t4), record_field("adv_pause", &UniConfiguration::adv_pause),
    record_field("adv_asym_pause", &UniConfiguration::adv_asym_pause),
    record_field("adv_1000_half", &UniConfiguration::adv_1000_half),
    record_field("adv_1000_full", &UniConfiguration::adv_1000_full),
    record_field("adv_port_type", &UniConfiguration::adv_port_type),
    record_field("phy_address", &UniConfiguration::phy_address));

template <>
inline constexpr auto record_fields<REMOTE_uni_port_status> = std::tuple(
    record_field("link", &REMOTE_uni_port_status::link), record_field("mac_type", &REMOTE_uni_port_status::mac_type),
    record_field("mii_rate", &REMOTE_uni_port_status::mii_rate),
    record_field("duplex", &REMOTE_uni_port_status::duplex),
    record_field("auto_negotiate", &REMOTE_uni_port_status::auto_negotiate),
    record_field("mode", &REMOTE_uni_port_status::mode), record_field("pause_tx", &REMOTE_uni_port_status::pause_tx),
    record_field("pause_rx", &REMOTE_uni_port_status::pause_rx),
    record_field("port_type", &REMOTE_uni_port_status::port_type));

namespace {

const Operation set_port("REMOTE_NEPONU_uni_set_port", REMOTE_MANAGEMENT);
const Operation get_port("REMOTE_NEPONU_uni_get_port", REMOTE_MANAGEMENT);
const Operation set_configuration("REMOTE_NEPONU_uni_set_port_configuration", REMOTE_MANAGEMENT);
const Operation get_configuration("REMOTE_NEPONU_uni_get_port_configuration", REMOTE_MANAGEMENT);
const Operation get_status("REMOTE_NEPONU_uni_get_port_status", REMOTE_MANAGEMENT);
const Operation set_extended("REMOTE_NEPONU_uni_set_extended_configuration", REMOTE_MANAGEMENT);
const Operation get_extended("REMOTE_NEPONU_uni_get_extended_configuration", REMOTE_MANAGEMENT);

constexpr std::uint8_t UNI_PORT_NUMBER = 1; // as loops are told of
constexpr std::uint32_t extended_limits[] = {4, 1, 4, 1};
enum Loopback { LOOPBACK_NONE = 0, LOOPBACK_PHY = 2, LOOPBACK_PARTNER = 3 };

// --- Abilities ---------------------------------------------------------------------------------------------------

struct Ability {
    std::uint8_t UniConfiguration::*advertised;
    std::uint16_t speed;
    bool is_full_duplex;
    bool is_t4; // of old cabling: no partner has it
};

// In the order of preference (IEEE 802.3 annex 28B.3).
constexpr Ability abilities[] = {
    {&UniConfiguration::adv_1000_full, 1000, true, false}, {&UniConfiguration::adv_1000_half, 1000, false, false},
    {&UniConfiguration::adv_100_full, 100, true, false},   {&UniConfiguration::adv_100_t4, 100, false, true},
    {&UniConfiguration::adv_100_half, 100, false, false},  {&UniConfiguration::adv_10_full, 10, true, false},
    {&UniConfiguration::adv_10_half, 10, false, false}};

using AbilitySet = std::bitset<std::size(abilities)>;

template <class Has>
AbilitySet abilities_that(Has&& has)
{
    AbilitySet set;
    for (std::size_t i = 0; i < std::size(abilities); ++i)
        set[i] = has(abilities[i]);
    return set;
}

const Ability* best_of(const AbilitySet& set)
{
    for (std::size_t i = 0; i < std::size(abilities); ++i)
        if (set[i]) return &abilities[i];
    return nullptr;
}

AbilitySet of_mac_type(std::uint8_t mac_type)
{
    return abilities_that([mac_type](const Ability& ability) {
        if (mac_type == REMOTE_UNI_MII) return ability.speed <= 100;
        return mac_type == REMOTE_UNI_GMII || (ability.speed == 1000 && ability.is_full_duplex);
    });
}

// What the port offers: all that it advertises, or the one thing that it is fixed to.
AbilitySet of_port(const UniConfiguration& port)
{
    const std::uint16_t fixed_speed = port.mac_type != REMOTE_UNI_MII   ? 1000
                                      : port.mii_rate == REMOTE_UNI_10M ? 10
                                                                        : 100;
    return of_mac_type(port.mac_type) & abilities_that([&](const Ability& ability) {
               if (port.auto_negotiate == 0)
                   return ability.speed == fixed_speed && ability.is_full_duplex == (port.duplex != 0) &&
                          !ability.is_t4;
               return port.advertise != 0 ? port.*ability.advertised != 0 : !ability.is_t4;
           });
}

AbilitySet of_partner(const UniPartner& partner)
{
    return abilities_that([&](const Ability& ability) {
        if (ability.is_t4) return false;
        if (!partner.negotiates)
            return ability.speed == partner.speed && ability.is_full_duplex == partner.has_full_duplex;
        return ability.speed <= partner.speed && (partner.has_full_duplex || !ability.is_full_duplex);
    });
}

// --- The link ----------------------------------------------------------------------------------------------------

const Ability* half_duplex_at(std::uint16_t speed)
{
    return best_of(abilities_that([speed](const Ability& ability) {
        return ability.speed == speed && !ability.is_full_duplex && !ability.is_t4;
    }));
}

// What the port runs at; null when there is no link. An end that does not negotiate is heard by its speed alone, and
// the other one takes half duplex; 1000 Mbit/s need two ends that negotiate, or two that do not.
const Ability* agreed(const UniConfiguration& port, const UniPartner& partner)
{
    const AbilitySet own = of_port(port);
    const AbilitySet others = of_partner(partner);
    const bool negotiates = port.auto_negotiate != 0;
    if (negotiates == partner.negotiates) return best_of(own & others);
    const Ability* fixed = best_of(negotiates ? others : own);
    const AbilitySet open = negotiates ? own : others;
    if (fixed == nullptr || fixed->speed == 1000) return nullptr;
    if ((open & abilities_that([fixed](const Ability& ability) { return ability.speed == fixed->speed; })).none())
        return nullptr;
    return negotiates ? half_duplex_at(fixed->speed) : fixed;
}

// The resolution of PAUSE (IEEE 802.3 table 28B-3).
void agree_on_pause(const UniConfiguration& port, const UniPartner& partner, REMOTE_uni_port_status* status)
{
    const bool is_symmetric = port.adv_pause != 0 && partner.has_pause;
    const bool is_asymmetric = port.adv_asym_pause != 0 && partner.has_asymmetric_pause;
    status->pause_tx = is_symmetric || (is_asymmetric && partner.has_pause);
    status->pause_rx = is_symmetric || (is_asymmetric && port.adv_pause != 0);
}

REMOTE_uni_port_status as_configured(const UniConfiguration& port)
{
    REMOTE_uni_port_status status{};
    status.mac_type = port.mac_type;
    status.mii_rate = port.mii_rate;
    status.duplex = port.duplex;
    status.mode = port.mode;
    status.port_type = port.adv_port_type;
    return status;
}

REMOTE_uni_port_status status_of(Network&, Onu& onu)
{
    const UniPort& port = onu.configuration.uni_port;
    const UniConfiguration& configuration = port.configuration;
    const UniPartner& partner = onu.uni_partner;
    REMOTE_uni_port_status status = as_configured(configuration);
    if (port.extended[REMOTE_UNI_POWER_DOWN] != 0) return status;
    const std::uint32_t loopback = port.extended[REMOTE_UNI_LOOPBACK];
    if (loopback != LOOPBACK_NONE && loopback != LOOPBACK_PARTNER) {
        status.link = 1; // with itself
        return status;
    }
    if (!partner.is_connected || onu.configuration.rstp_ldp.closed_ports.contains(UNI_PORT_NUMBER)) return status;
    const Ability* ability = agreed(configuration, partner);
    if (ability == nullptr) return status;
    status.link = 1;
    if (ability->speed < 1000) {
        status.mac_type = REMOTE_UNI_MII;
        status.mii_rate = ability->speed == 10 ? REMOTE_UNI_10M : REMOTE_UNI_100M;
    }
    status.duplex = ability->is_full_duplex ? REMOTE_UNI_FULL_DUPLEX : REMOTE_UNI_HALF_DUPLEX;
    status.port_type = partner.is_multi_port ? REMOTE_UNI_MULTI_PORT : REMOTE_UNI_SINGLE_PORT;
    status.auto_negotiate = configuration.auto_negotiate != 0 && partner.negotiates;
    if (status.auto_negotiate == 0) return status;
    if (ability->is_full_duplex) agree_on_pause(configuration, partner, &status);
    // The end with several ports gives the clock (40.5.2).
    if (configuration.adv_port_type != status.port_type) status.mode = configuration.adv_port_type;
    return status;
}

// --- Settings ----------------------------------------------------------------------------------------------------

bool is_in_range(const UniConfiguration& port)
{
    constexpr std::uint8_t UniConfiguration::*flags[] = {
        &UniConfiguration::mii_rate,       &UniConfiguration::duplex,        &UniConfiguration::gmii_master_mode,
        &UniConfiguration::auto_negotiate, &UniConfiguration::mode,          &UniConfiguration::advertise,
        &UniConfiguration::adv_10_half,    &UniConfiguration::adv_10_full,   &UniConfiguration::adv_100_half,
        &UniConfiguration::adv_100_full,   &UniConfiguration::adv_100_t4,    &UniConfiguration::adv_pause,
        &UniConfiguration::adv_asym_pause, &UniConfiguration::adv_1000_half, &UniConfiguration::adv_1000_full,
        &UniConfiguration::adv_port_type};
    for (const auto flag : flags)
        if (port.*flag > 1) return false;
    return port.mac_type <= REMOTE_UNI_TBI && port.phy_address <= UINT8_MAX;
}

std::int16_t change_extended(UniPort& port, std::int32_t item, std::uint32_t value)
{
    if (item < 0 || item > REMOTE_UNI_POWER_SAVE || value > extended_limits[item]) return PARAMETER_ERROR;
    auto extended = port.extended;
    extended[item] = value;
    if (extended[REMOTE_UNI_POWER_DOWN] != 0 && extended[REMOTE_UNI_LOOPBACK] == LOOPBACK_PHY) return BAD_CONFIGURATION;
    port.extended = extended;
    return SUCCESS;
}

constexpr ScenarioWord speed_words[] = {{"10", 10}, {"100", 100}, {"1000", 1000}};

} // namespace

void read_uni_partner(ScenarioReader& reader, UniPartner* partner)
{
    reader.flag("connected", &partner->is_connected);
    reader.flag("negotiates", &partner->negotiates);
    reader.word("speed", speed_words, &partner->speed);
    reader.flag("full_duplex", &partner->has_full_duplex);
    reader.flag("pause", &partner->has_pause);
    reader.flag("asymmetric_pause", &partner->has_asymmetric_pause);
    reader.flag("multi_port", &partner->is_multi_port);
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t REMOTE_NEPONU_uni_set_port(int16_t olt_id, int16_t onu_id, uint8_t cpu, uint8_t datapath)
{
    return set_remote(set_port, olt_id, onu_id, in(olt_id, onu_id, cpu, datapath), [&](Network&, Olt&, Onu& onu) {
        if (cpu > 1 || datapath > 1) return PARAMETER_ERROR;
        onu.configuration.uni_port.cpu = cpu;
        onu.configuration.uni_port.datapath = datapath;
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_uni_get_port(int16_t olt_id, int16_t onu_id, uint8_t* cpu, uint8_t* datapath)
{
    const auto results = out(cpu, datapath);
    return ask_remote(get_port, olt_id, onu_id, in(olt_id, onu_id), results, [&](Network&, Olt&, Onu& onu) {
        *cpu = onu.configuration.uni_port.cpu;
        *datapath = onu.configuration.uni_port.datapath;
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_uni_set_port_configuration(int16_t olt_id, int16_t onu_id,
                                                 const REMOTE_uni_port_configuration* configuration)
{
    const auto arguments = in(olt_id, onu_id, configuration);
    return set_remote(set_configuration, olt_id, onu_id, arguments, [&](Network&, Olt&, Onu& onu) {
        if (!is_in_range(*configuration)) return PARAMETER_ERROR;
        if (of_port(*configuration).none()) return BAD_CONFIGURATION;
        onu.configuration.uni_port.configuration = *configuration;
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_uni_get_port_configuration(int16_t olt_id, int16_t onu_id,
                                                 REMOTE_uni_port_configuration* configuration)
{
    return get_remote(get_configuration, olt_id, onu_id, configuration,
                      [](Network&, Onu& onu) { return onu.configuration.uni_port.configuration; });
}

int16_t REMOTE_NEPONU_uni_get_port_status(int16_t olt_id, int16_t onu_id, REMOTE_uni_port_status* status)
{
    return get_remote(get_status, olt_id, onu_id, status, status_of);
}

int16_t REMOTE_NEPONU_uni_set_extended_configuration(int16_t olt_id, int16_t onu_id, int32_t item, uint32_t value)
{
    const auto arguments = in(olt_id, onu_id, item, value);
    return set_remote(set_extended, olt_id, onu_id, arguments, [&](Network&, Olt&, Onu& onu) {
        return change_extended(onu.configuration.uni_port, item, value);
    });
}

int16_t REMOTE_NEPONU_uni_get_extended_configuration(int16_t olt_id, int16_t onu_id, int32_t item, uint32_t* value)
{
    const auto arguments = in(olt_id, onu_id, item);
    return ask_remote(get_extended, olt_id, onu_id, arguments, out(value), [&](Network&, Olt&, Onu& onu) {
        if (item < 0 || item > REMOTE_UNI_POWER_SAVE) return PARAMETER_ERROR;
        *value = onu.configuration.uni_port.extended[item];
        return SUCCESS;
    });
}
