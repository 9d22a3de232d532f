// SPDX-License-Identifier: Apache-2.0
// Names by number: alarms and DBA kinds.
#include <epon/cli.h>

constinit const char* const CLI_alarm_s[] = {
    "ber",
    "fer",
    "sw-error",
    "local-link",
    "dying-gasp",
    "critical-event",
    "remote-stable",
    "local-stable",
    "oam-vendor-specific",
    "errored-symbol-period",
    "errored-frame",
    "errored-frame-period",
    "errored-second-summary",
    "registration-error",
    "llid-mismatch",
    "many-onus",
    "olt-port-ber",
    "device-fatal-error",
    "onu-laser-always-on",
    "onu-signal-degradation",
    "onu-eol",
    "onu-eol-database-full",
    "onu-signal-abnormal",
    "optical-module-power-supply-abnormal",
    "optical-module-temperature-abnormal",
    "optical-module-10g-tx-bias-current-abnormal",
    "optical-module-10g-tx-power-abnormal",
    "optical-module-1g-tx-bias-current-abnormal",
    "optical-module-1g-tx-power-abnormal",
    "encryption-pn",
    "onu-register-with-existing-mac",
    "host-rate-limiter-exceed",
    "ber-standard-us-major",
    "ber-standard-us-minor",
    "ber-standard-ds-major",
    "ber-siepon-us-failure",
    "ber-siepon-us-degradation",
    "ber-siepon-ds-failure",
    "ber-siepon-ds-degradation",
    "oam-link",
    "encryption-key",
    "LAST_ALARM",
};

constinit const char* const CLI_dba_s[] = {
    "no-dba", "internal", "vireo", "vireo2", "meridian", "aldebaran", "last-dba",
};

// A missing name would shift all that follow.
static_assert(sizeof CLI_alarm_s / sizeof *CLI_alarm_s == CLI_ALARM_COUNT);
static_assert(sizeof CLI_dba_s / sizeof *CLI_dba_s == CLI_DBA_COUNT);
