/* SPDX-License-Identifier: Apache-2.0 */
/*
 * Optics of an OLT: how its burst mode receivers and its clock and data recovery (CDR) are driven (IEEE 802.3 clauses
 * 60 and 75). An OLT has settings for its 1G and for its 10G reception.
 */
#ifndef EPON_SDK_OPTICS_H
#define EPON_SDK_OPTICS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum OpticsRate { OPTICS_1G = 0, OPTICS_10G = 1, OPTICS_RATE_COUNT };

enum OpticsPolarity { OPTICS_ACTIVE_LOW = 0, OPTICS_ACTIVE_HIGH = 1 };
enum OpticsResetScheme {
    OPTICS_RESET_SD_BASED = 0, /* by the signal detection */
    OPTICS_RESET_NON_SD_BASED = 1,
    OPTICS_RESET_SINGLE = 2,
    OPTICS_RESET_SD_BASED_TYPE_2 = 3
};
enum OpticsPerRate { OPTICS_UNIFIED = 0, OPTICS_SEPARATE = 1 };
enum OpticsLockDiscMode { OPTICS_STUCK_AT_0 = 0, OPTICS_STUCK_AT_1 = 1, OPTICS_STUCK_AT_2 = 2 };
enum OpticsXsbiMode { OPTICS_XSBI_APPLY = 0, OPTICS_XSBI_DONT_APPLY = 1 };

/*
 * Settings of one rate. A field with all bits set is left as it is. Times are in time quanta of 16 ns.
 */
typedef struct OLT_optics {
    /* of both rates */
    int32_t discovery_mode_sync_time;      /* 0..4095 */
    int32_t normal_mode_sync_time;         /* 0..4095 */
    int32_t xcvr_reset_gate_offset;        /* 0..4095 */
    int32_t xcvr_reset_duration;           /* 0..4095 */
    int32_t xcvr_use_reset;                /* 1 used, 0 not */
    int32_t cdr_reset_gate_offset;         /* 0..4095 */
    int32_t mac_window_left_shoulder;      /* 0..255 */
    int32_t mac_window_right_shoulder;     /* 0..255 */
    int32_t cdr_lock_left_shoulder;        /* 0..255 */
    int32_t cdr_lock_right_shoulder;       /* 0..255 */
    int32_t xcvr_reset_scheme;             /* enum OpticsResetScheme */
    int32_t cdr_reset_scheme;              /* enum OpticsResetScheme, without type 2 */
    int32_t ecdr_lock_disc_mode;           /* enum OpticsLockDiscMode */
    int32_t ecdr_reset_gate_offset;        /* 0..4095 */
    int32_t ecdr_reset_duration;           /* 0..4095 */
    int32_t ecdr_use_reset;                /* 1 used, 0 not */
    int32_t ecdr_reset_scheme;             /* enum OpticsResetScheme, without type 2 */
    int32_t ecdr_use_lock_window;          /* 1 used, 0 not */
    int32_t ecdr_discovery_left_shoulder;  /* 0..255 */
    int32_t ecdr_discovery_right_shoulder; /* 0..255 */
    int32_t ecdr_use_disc_envelop;         /* 1 used, 0 not */
    int32_t ecdr_reset_polarity;           /* enum OpticsPolarity */
    int32_t ecdr_disc_win_polarity;        /* enum OpticsPolarity */
    /* of 1G */
    int32_t allocation_offset;            /* 0..4095 */
    int32_t laser_on_time;                /* 0..255 */
    int32_t laser_off_time;               /* 0..255 */
    int32_t xcvr_reset_polarity;          /* enum OpticsPolarity */
    int32_t xcvr_sd_rx_polarity;          /* enum OpticsPolarity */
    int32_t pon_tx_disable_line_polarity; /* enum OpticsPolarity */
    int32_t optics_dead_zone;             /* 0..4095 */
    int32_t sd_per_rate;                  /* enum OpticsPerRate */
    /* of 10G */
    int32_t rx_rst_per_rate;                 /* enum OpticsPerRate */
    int32_t rx_xsbi_mode;                    /* enum OpticsXsbiMode */
    int32_t xcvr_user_rate_select;           /* 0..1 */
    int32_t pon_opt_rate_sel_left_shoulder;  /* 0..255 */
    int32_t pon_opt_rate_sel_right_shoulder; /* 0..255 */
    int32_t dead_zone_1g_to_10g;             /* 0..4095 */
    int32_t dead_zone_1g_to_1g;              /* 0..4095 */
    int32_t dead_zone_10g_to_1g;             /* 0..4095 */
    int32_t dead_zone_10g_to_10g;            /* 0..4095 */
    int32_t dead_zone_pre_1g;                /* 0..4095 */
    int32_t dead_zone_pre_10g;               /* 0..4095 */
    int32_t cdr_rate_sel_left_shoulder;      /* 0..255 */
    int32_t cdr_rate_sel_right_shoulder;     /* 0..255 */
    int32_t rx_lane_per_rate;                /* enum OpticsPerRate */
} OLT_optics;

/* Parameters that are set one by one. */
enum OpticsParameter {
    OPTICS_RX_TERM_MODE = 0,          /* enum OpticsRxTermMode */
    OPTICS_PREDATE_XCVR_RESET = 1,    /* time quanta by which the transceiver's reset is early, 0..256 */
    OPTICS_START_HUNT_ON_CDR_LOCK = 2 /* 1: search for a burst's start once the CDR has locked; 0: at once */
};
enum OpticsRxTermMode {
    OPTICS_RX_TERM_DC_COUPLING_CML = 0,
    OPTICS_RX_TERM_AC_COUPLING = 1,
    OPTICS_RX_TERM_DC_COUPLING_LVPECL = 2,
    OPTICS_RX_TERM_NOT_RELEVANT = 3
};

/* The settings as read back, with the parameters that are set one by one. A setting that the rate does not have has all
 * bits set. */
typedef struct OLT_device_optics {
    OLT_optics settings;
    int32_t rx_term_mode;
    int32_t predate_xcvr_reset;
    int32_t start_hunt_on_cdr_lock;
} OLT_device_optics;

/* How the receivers are connected. */
enum OpticsConnectivity {
    OPTICS_DUAL_1G = 0, /* two 1G receivers, none of 10G */
    OPTICS_SEPARATED_1G_10G = 1,
    OPTICS_UNIFIED_RX = 2,
    OPTICS_ASYMMETRIC = 3, /* 10G downstream, 1G upstream */
    OPTICS_GEN_CON_TYPE_1 = 4,
    OPTICS_GEN_CON_TYPE_2 = 5,
    OPTICS_CONNECTIVITY_COUNT
};
enum OpticsModule {
    OPTICS_MODULE_AUTO = 0, /* the one that is found */
    OPTICS_MODULE_LTX5302 = 1,
    OPTICS_MODULE_LTX5302A = 2,
    OPTICS_MODULE_LTX5302B = 3,
    OPTICS_MODULE_FIBERXON = 4,
    OPTICS_MODULE_SUPERXON = 5,
    OPTICS_MODULE_COUNT
};

/* Non-zero when the connectivity of the OLT's receivers allows 1G settings that leave out those of mixed rates. */
int32_t Is_olt_support_dual(int16_t olt_id);

/* The rate is an enum OpticsRate. -4 outside the ranges (all fields or none are taken), -1005 for 10G when the
 * connectivity has no 10G receiver. */
int16_t NEP_set_olt_device_optics(int16_t olt_id, int32_t rate, const OLT_optics* optics);
int16_t NEP_get_olt_device_optics(int16_t olt_id, int32_t rate, OLT_device_optics* optics);
/* Sets one parameter (enum OpticsParameter) of a rate. */
int16_t NEP_set_optics_single_param(int16_t olt_id, int32_t rate, int32_t parameter, int32_t value);
/* Sets the optics of both rates to what a kind of module (enum OpticsModule) needs in a connectivity (enum
 * OpticsConnectivity). */
int16_t NEP_set_olt_device_optics_by_module_and_connectivity(int16_t olt_id, int32_t connectivity, int32_t module);

#ifdef __cplusplus
}
#endif

#endif
