/* The engine as a library: a camera move and settings in, frames of a hand-held camera out.
 *
 * Every function that can fail answers with a tremolux_status, and leaves what its pointers lead to alone when it fails;
 * tremolux_last_error has the line that says what was found and what was expected. Nothing is printed, nothing ends the
 * program, nothing is written to a disk. Texts are UTF-8 and end with a zero byte.
 *
 * Threads: different moves and shots may be used by different threads at once. A shot belongs to one call at a time;
 * another gets TREMOLUX_BUSY, but for tremolux_shot_cancel, which is for any thread.
 *
 * Space is left-handed, Y up; a camera looks along +Z. Lengths are in scene units (centimetres), angles in radians as
 * heading, pitch, bank, lens and film back in millimetres. */
#ifndef TREMOLUX_H
#define TREMOLUX_H

#include <stddef.h>
#include <stdint.h>

#ifdef _WIN32
#ifdef TREMOLUX_BUILDS_LIBRARY
#define TREMOLUX_API __declspec(dllexport)
#else
#define TREMOLUX_API __declspec(dllimport)
#endif
#else
#define TREMOLUX_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef enum tremolux_status {
    TREMOLUX_OK = 0,
    TREMOLUX_INTERNAL = 1, /* memory ran out, or a mistake of the library's own */
    TREMOLUX_INPUT = 2,    /* a value, a text or bytes that were handed in */
    TREMOLUX_MODULE = 3,   /* the module gave up */
    TREMOLUX_HANDLE = 5,   /* a handle that is null, freed, or of something else */
    TREMOLUX_BUSY = 6,     /* the shot is in use by another call */
    TREMOLUX_CANCELLED = 130
} tremolux_status;

/* Handles. None is ever given out twice, so that a freed one is told. */
typedef struct tremolux_move_handle *tremolux_move;
typedef struct tremolux_shot_handle *tremolux_shot;

/* The version of the library and its module, "major.minor". */
TREMOLUX_API const char *tremolux_version(void);

/* What went wrong last in a call with this handle, as one line without a line end, empty when nothing did. For NULL, and for
 * what is no handle: in the calling thread's calls that had no valid handle. Holds until the next call with the handle. */
TREMOLUX_API const char *tremolux_last_error(const void *handle);

/* ---- Bytes that the library made */

typedef struct tremolux_buffer {
    const char *bytes; /* with a zero byte behind them */
    size_t size;
    void *owner;
} tremolux_buffer;

/* Frees the bytes, and clears the struct; a cleared one is left alone. */
TREMOLUX_API void tremolux_buffer_free(tremolux_buffer *buffer);

/* ---- The settings of a shot */

typedef enum tremolux_kind {
    TREMOLUX_NUMBER = 1,
    TREMOLUX_SWITCH = 2, /* 0 or 1 */
    TREMOLUX_TIME = 3,   /* seconds; a shot keeps the nearest whole frame, of 24 a second at a rate of 23.976 */
    TREMOLUX_TEXT = 4,
    TREMOLUX_CHOICE = 5, /* the number of one entry of a list */
    TREMOLUX_LINK = 6,
    TREMOLUX_BUTTON = 7
} tremolux_kind;

typedef enum tremolux_unit {
    TREMOLUX_NO_UNIT = 0,
    TREMOLUX_PERCENT = 1, /* stored as a fraction: 1.5 is 150 % */
    TREMOLUX_ANGLE = 2,   /* stored in radians */
    TREMOLUX_FRAMES = 3,  /* frames: of what counts in them whatever the rate is */
    TREMOLUX_SECONDS = 4  /* of times; panels show them as frames of the shot's rate */
} tremolux_unit;

/* Numbers are in the stored unit, in which tremolux_shot_set takes and tremolux_shot_get gives them. Texts hold for as
 * long as the library is loaded. */
typedef struct tremolux_parameter {
    size_t size; /* sizeof(tremolux_parameter), set by the caller */
    int32_t id;
    int32_t kind; /* a tremolux_kind */
    int32_t unit; /* a tremolux_unit */
    const char *label;
    double minimum, maximum; /* infinite where there is no limit */
    double default_value;    /* of a number, a switch or a time; else 0 */
    int32_t group;           /* the tremolux_panel_entry that it stands in */
    const char *tab;         /* title of the panel's tab */
    const char *section;     /* title of the innermost titled group in the tab, empty without one */
    const char *sentence;    /* what it does to the motion, as in the manual; empty for what every tag has */
    double slider_minimum, slider_maximum; /* the range of a slider, which typed values may leave; infinite without one */
    double step;                           /* what one press of an arrow adds; 0: nothing is said of it */
} tremolux_parameter;

/* In the order of the panel; 0 when the module does not start. */
TREMOLUX_API size_t tremolux_parameter_count(void);
/* TREMOLUX_INPUT for an index that is not less than the count. A smaller struct, of an older header, gets what it has room
 * for. */
TREMOLUX_API tremolux_status tremolux_parameter_at(size_t index, tremolux_parameter *parameter);

typedef enum tremolux_panel_kind {
    TREMOLUX_PANEL_GROUP = 1,
    TREMOLUX_PANEL_SEPARATOR = 2,
    TREMOLUX_PANEL_PARAMETER = 3
} tremolux_panel_kind;

/* One element of the panel. What stands in the same group fills its rows from left to right, `columns` cells each. */
typedef struct tremolux_panel_entry {
    size_t size;  /* sizeof(tremolux_panel_entry), set by the caller */
    int32_t kind; /* a tremolux_panel_kind */
    int32_t id;   /* of a parameter the one that tremolux_parameter has */
    int32_t group;    /* the id of the group that it stands in; 0: it is a tab */
    int32_t columns;  /* of a group: cells in one row, 1 or more */
    int32_t is_open;  /* of a group: 1 where it is unfolded at first */
    int32_t has_line; /* of a separator: 1 where it is drawn as a line */
    const char *title; /* may be empty: a plain box; of a parameter its label. For as long as the library is loaded */
} tremolux_panel_entry;

/* The whole panel in the order in which it is built, groups before what stands in them; 0 when the module does not start. */
TREMOLUX_API size_t tremolux_panel_count(void);
/* TREMOLUX_INPUT for an index that is not less than the count. */
TREMOLUX_API tremolux_status tremolux_panel_at(size_t index, tremolux_panel_entry *entry);

typedef struct tremolux_preset {
    size_t size; /* sizeof(tremolux_preset), set by the caller */
    const char *category, *name; /* for as long as the library is loaded */
    const char *sentence;        /* what it imitates */
    double made_for;             /* frames a second that it was made at; 0: not known */
    int32_t is_pair;             /* 1: two cameras, one behind the other */
} tremolux_preset;

/* The built-in presets in the order of the panel; 0 when the module does not start. */
TREMOLUX_API size_t tremolux_preset_count(void);
TREMOLUX_API tremolux_status tremolux_preset_at(size_t index, tremolux_preset *preset);

/* ---- Moves: what a camera does, frame by frame */

/* Numbers of one frame, in this order: position x, y, z; heading, pitch, bank; focal length; focus distance. */
#define TREMOLUX_NUMBERS_PER_FRAME 8

typedef struct tremolux_move_info {
    size_t size; /* sizeof(tremolux_move_info), set by the caller */
    int64_t first_frame;
    uint64_t frame_count;
    int32_t rate_numerator, rate_denominator; /* frames per second: 1 to 2500, 24000 / 1001 for instance */
    double aperture_width;                    /* of the film back */
} tremolux_move_info;

/* A camera with a perspective, from TREMOLUX_NUMBERS_PER_FRAME numbers for each of info->frame_count frames, at most a million frames; `count` is how many
 * numbers there are. */
TREMOLUX_API tremolux_status tremolux_move_from_numbers(const tremolux_move_info *info, const double *numbers,
                                                        size_t count, tremolux_move *move);
/* From the bytes of a camera file. `name` is for messages, and says the format by its extension (".csv", ".usda", ...). */
TREMOLUX_API tremolux_status tremolux_move_from_bytes(const char *name, const void *bytes, size_t size,
                                                      tremolux_move *move);
TREMOLUX_API tremolux_status tremolux_move_info_of(tremolux_move move, tremolux_move_info *info);
/* All numbers of the move; `count` says how many there is room for: TREMOLUX_NUMBERS_PER_FRAME times the frames, or more. */
TREMOLUX_API tremolux_status tremolux_move_numbers(tremolux_move move, double *numbers, size_t count);
/* The bytes of a camera file of the format that the name's extension says. */
TREMOLUX_API tremolux_status tremolux_move_to_bytes(tremolux_move move, const char *name, tremolux_buffer *buffer);
/* NULL is left alone. */
TREMOLUX_API tremolux_status tremolux_move_free(tremolux_move move);

/* ---- Shots: a move, and the hand-held camera that follows it */

/* The move is copied: it may be freed. The shot begins with the module's defaults. */
TREMOLUX_API tremolux_status tremolux_shot_new(tremolux_move move, tremolux_shot *shot);
/* NULL is left alone. A shot that another thread plays goes when that is over. */
TREMOLUX_API tremolux_status tremolux_shot_free(tremolux_shot shot);

/* Settings. Each call that changes the shot is one step of tremolux_shot_undo. TREMOLUX_INPUT for a number that no
 * parameter has, for one of another kind, and for a value that it cannot have: beyond its limits, not finite, above 1e12. */

/* A number, a switch (0 or 1), a time (seconds, taken to the nearest whole frame of the shot's rate) or a choice (the
 * value of one of its entries as the shot's lists are now). */
TREMOLUX_API tremolux_status tremolux_shot_set(tremolux_shot shot, int32_t parameter, double value);
/* The same numbers; of a keyed setting what it was on the last frame that was played. */
TREMOLUX_API tremolux_status tremolux_shot_get(tremolux_shot shot, int32_t parameter, double *value);
/* "LABEL=VALUE" or "ID=VALUE", as a user types it: "Shake Speed=150%", "Interval=1.5s", "Interval=45f". */
TREMOLUX_API tremolux_status tremolux_shot_set_text(tremolux_shot shot, const char *setting);
/* 1 when the module lets a user change it as things stand, else 0. */
TREMOLUX_API tremolux_status tremolux_shot_is_enabled(tremolux_shot shot, int32_t parameter, int32_t *enabled);

typedef struct tremolux_choice {
    size_t size; /* sizeof(tremolux_choice), set by the caller */
    int32_t value;
    const char *label; /* until the next call with the shot */
} tremolux_choice;

/* The entries of a choice as they are now: what the list of presets offers depends on the category. TREMOLUX_INPUT for a
 * parameter that is no choice, and for an index that is not less than the count. */
TREMOLUX_API tremolux_status tremolux_shot_choice_count(tremolux_shot shot, int32_t parameter, size_t *count);
TREMOLUX_API tremolux_status tremolux_shot_choice_at(tremolux_shot shot, int32_t parameter, size_t index,
                                                     tremolux_choice *choice);

/* A built-in preset: "CATEGORY/NAME", a name, or a part that only one preset has. TREMOLUX_INPUT for any other text. A preset
 * that is a pair plays with its second camera behind the first until another is chosen; the settings are the first one's. */
TREMOLUX_API tremolux_status tremolux_shot_apply_preset(tremolux_shot shot, const char *preset);
/* Two built-in presets: numbers by weight, of which the second has `share`, 0 to 1; switches and choices as the larger share has
 * them; the seed is the first one's. */
TREMOLUX_API tremolux_status tremolux_shot_apply_mix(tremolux_shot shot, const char *preset, const char *second, double share);
/* The module counts frames, not seconds: changes the settings so that the shot has the frequencies that they have at `made_for`
 * frames a second (1 to 2500), as far as its formulas allow. A preset that shall look as it was made has this call behind it. */
TREMOLUX_API tremolux_status tremolux_shot_keep_hertz(tremolux_shot shot, double made_for);
/* The bytes of a preset file, which are read as the module reads a user's preset: values that are none, or beyond their
 * limits, give way to the parameter's own. Afterwards the panel's lists show "Custom". TREMOLUX_INPUT for bytes that are
 * no preset file, for more than 1 MiB, and for a baked shot. */
TREMOLUX_API tremolux_status tremolux_shot_apply_preset_bytes(tremolux_shot shot, const void *bytes, size_t size);
/* The bytes of a preset file with the shot's settings as they are now. `name` is the one that lists show; a file must be
 * able to have it: 1 to 150 bytes. TREMOLUX_INPUT for another name and for a baked shot. The shot stays as it is. */
TREMOLUX_API tremolux_status tremolux_shot_preset_to_bytes(tremolux_shot shot, const char *name, tremolux_buffer *buffer);
/* Presses a button of the panel. TREMOLUX_INPUT for one that is disabled as things stand. */
TREMOLUX_API tremolux_status tremolux_shot_press(tremolux_shot shot, int32_t button);
/* What the camera turns to, or focuses on: the positions of a move, of which a single frame holds for all time.
 * TREMOLUX_INPUT for a second one, and for frames that do not cover the shot's. */
TREMOLUX_API tremolux_status tremolux_shot_set_target(tremolux_shot shot, tremolux_move points);
TREMOLUX_API tremolux_status tremolux_shot_set_focus_object(tremolux_shot shot, tremolux_move points);

/* Takes back the last change of the shot: a setting, a key, a preset, a button, a target or focus object, a bake. The last
 * 100 are remembered; a call that failed is none of them. `done` is 1, or 0 when there was nothing to take back. Numbers
 * stay those of the last play. */
TREMOLUX_API tremolux_status tremolux_shot_undo(tremolux_shot shot, int32_t *done);
/* Makes what was taken back again; a new change forgets it. `done` is 1, or 0 when there was nothing. */
TREMOLUX_API tremolux_status tremolux_shot_redo(tremolux_shot shot, int32_t *done);

/* Called after each frame; anything but 0 cancels. */
typedef int32_t (*tremolux_progress)(uint64_t done, uint64_t frames, void *user);

/* Plays the shot from its first frame to its last. `progress` may be NULL. A cancelled play leaves the numbers of the last whole
 * one. */
TREMOLUX_API tremolux_status tremolux_shot_play(tremolux_shot shot, tremolux_progress progress, void *user);
/* The same from a frame on, as after a jump to it: clocks stand where they would, what swings starts from rest. The frames before
 * it keep what the last whole play showed, which must have been. */
TREMOLUX_API tremolux_status tremolux_shot_play_from(tremolux_shot shot, int64_t frame, tremolux_progress progress,
                                                     void *user);
/* From any thread: a play that runs ends with TREMOLUX_CANCELLED, any other is left alone. */
TREMOLUX_API tremolux_status tremolux_shot_cancel(tremolux_shot shot);
/* What the last whole play showed, as tremolux_move_numbers gives a move's. */
TREMOLUX_API tremolux_status tremolux_shot_numbers(tremolux_shot shot, double *numbers, size_t count);
/* The numbers at any time between the first frame and the last, in frames: a smooth curve through all frames. Neither positions
 * nor turning speed leap. There is room for TREMOLUX_NUMBERS_PER_FRAME numbers. */
TREMOLUX_API tremolux_status tremolux_shot_numbers_at(tremolux_shot shot, double frame, double *numbers);
/* The same as a move of its own. */
TREMOLUX_API tremolux_status tremolux_shot_result(tremolux_shot shot, tremolux_move *move);

/* What each layer of the motion added on a frame: input, smoothed, overshoot, shake or drift, jolt and result of position (scene
 * units), rotation (degrees), zoom (millimetres) and focus (scene units), as JSON. Plays the shot up to the frame. */
TREMOLUX_API tremolux_status tremolux_shot_layers(tremolux_shot shot, int64_t frame, tremolux_buffer *buffer);

/* The same for every frame, as an array. `progress` may be NULL. */
TREMOLUX_API tremolux_status tremolux_shot_trace(tremolux_shot shot, tremolux_progress progress, void *user,
                                                 tremolux_buffer *buffer);

typedef struct tremolux_measures {
    size_t size; /* sizeof(tremolux_measures), set by the caller */
    double position_rms, position_peak; /* how far the camera strayed from its input: scene units */
    double turn_rms, turn_peak;         /* radians about any axis */
    int64_t position_peak_frame, turn_peak_frame;
    /* In the band from 0.1 to 0.5 Hz, in which pictures make people sick soonest: RMS of the sway as a share of the picture's width,
     * and of the bank in radians. */
    double sway_rms, bank_rms;
} tremolux_measures;

/* Of what the last whole play added. */
TREMOLUX_API tremolux_status tremolux_shot_measure(tremolux_shot shot, tremolux_measures *measures);

typedef enum tremolux_interpolation {
    TREMOLUX_SMOOTH = 1, /* flat at the keys */
    TREMOLUX_LINEAR = 2,
    TREMOLUX_HOLD = 3
} tremolux_interpolation;

/* A key of a number, a switch or a time on its own track, in place of one that is on that frame. `value` is as for
 * tremolux_shot_set; `interpolation` is a tremolux_interpolation. A switch holds from key to key whatever it is. The track
 * has the last word over tremolux_shot_set. TREMOLUX_INPUT for a frame that is not in the shot, and for a choice: choosing
 * from a list sets other parameters once, which a track, whose value is merely there, would not do. */
TREMOLUX_API tremolux_status tremolux_shot_key(tremolux_shot shot, int32_t parameter, int64_t frame, double value,
                                               int32_t interpolation);

/* Takes a key away, and with the last one its track: the setting keeps the value that it had last. TREMOLUX_INPUT where there is
 * none on that frame. */
TREMOLUX_API tremolux_status tremolux_shot_unkey(tremolux_shot shot, int32_t parameter, int64_t frame);

/* Jolts on frames, and on no others that were given before. `events` are `count` numbers, two for each: the frame, 0 or later and
 * in the shot, and the strength, 0 to 1. The two intensities are those of a jolt of strength 1; where strengths differ, keys hold
 * the settings at their shares of them, in place of whatever keys they had. Without events the frames are forgotten. */
TREMOLUX_API tremolux_status tremolux_shot_jolts(tremolux_shot shot, const double *events, size_t count,
                                                 double position_intensity, double rotation_intensity);

/* When, where and how much a camera is shaken. */
typedef struct tremolux_direction {
    size_t size;               /* sizeof(tremolux_direction), set by the caller */
    int64_t from, until;       /* the first and the last frame that are shaken */
    int64_t fade_in, fade_out; /* frames, after `from` and before `until` */
    double mix;                /* the most of the shake, 0 to 1 */
    int32_t position, rotation, lens; /* 1: shaken, 0: the input's, bit by bit */
    double lens_aware; /* 0 to 1: how much of a turn stays the same in the picture when the lens changes */
    double focal_length; /* millimetres: where it stays as it is */
} tremolux_direction;

/* What is played is shown so from now on, the last whole play too; NULL: as it is played. It is no change of the shot: undo leaves
 * it alone. */
TREMOLUX_API tremolux_status tremolux_shot_direct(tremolux_shot shot, const tremolux_direction *direction);

typedef enum tremolux_bake {
    TREMOLUX_BAKE_QUICKLY = 1,       /* from the curves of the camera: sees no zoom */
    TREMOLUX_BAKE_BY_BRUTE_FORCE = 2 /* frame by frame: sees everything */
} tremolux_bake;

/* Turns the motion into keys, which are played from then on; `kind` is a tremolux_bake. TREMOLUX_INPUT for a pair of cameras. */
TREMOLUX_API tremolux_status tremolux_shot_bake(tremolux_shot shot, int32_t kind);

/* ---- Files that are no camera's */

typedef enum tremolux_band {
    TREMOLUX_ALL = 0,
    TREMOLUX_LOW = 1, /* below 200 Hz */
    TREMOLUX_MID = 2, /* up to 2000 Hz */
    TREMOLUX_HIGH = 3
} tremolux_band;

/* The events of a table (.csv), frames (.txt), notes (.mid), cuts (.edl) or sound (.wav), by the name's extension, on the move's
 * frames, as JSON: "events" with "frame" and "strength" (0 to 1), "outside": how many are beyond the move or before frame 0, and of
 * sound the "curve" that they were found by: "step" in seconds and the "novelty" at each, of which a peak above 1 counts.
 * `sensitivity`, 0 to 100, and `band`, a tremolux_band, say which beats of a sound count; 50 and TREMOLUX_ALL are usual. */
TREMOLUX_API tremolux_status tremolux_events_from_bytes(tremolux_move move, const char *name, const void *bytes, size_t size,
                                                        double sensitivity, int32_t band, tremolux_buffer *buffer);

/* The built-in presets by how near their shake is to that of a recorded camera, the nearest first, as a JSON array of "category",
 * "name" and "distance": the mean over axes and bands of what the RMS differ by, as natural logarithms. `progress` hears shares of
 * a thousand, and may be NULL. TREMOLUX_INPUT for a recording in which nothing moves, or that is too short. */
TREMOLUX_API tremolux_status tremolux_nearest_presets(tremolux_move recording, tremolux_progress progress, void *user,
                                                      tremolux_buffer *buffer);

#ifdef __cplusplus
}
#endif

#endif
