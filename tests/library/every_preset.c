/* Plays one move under every built-in preset, every layer on.
 *
 *   every_preset          prints the numbers of each frame, for same_everywhere.py to hold against those of another system
 *   every_preset REPEATS  plays it that often under the first preset instead, and prints the microseconds of a frame */
#include <stdio.h>
#include <stdlib.h>
#include <time.h>
#include <tremolux/tremolux.h>

enum { kFrames = 270, kNumbers = kFrames * TREMOLUX_NUMBERS_PER_FRAME };

static void check(tremolux_status status, const void *handle) {
    if (status == TREMOLUX_OK) return;
    fprintf(stderr, "every_preset: %s\n", tremolux_last_error(handle));
    exit(EXIT_FAILURE);
}

/* Sways between -1 and 1 once a period, of sums, products and quotients alone: a sine is not the same on every system.
 */
static double sway(double frame, double period) {
    double phase = frame / period;
    phase -= (double)(long)phase;
    const double half = phase < 0.5 ? phase : phase - 0.5;
    const double arch = 16 * half * (0.5 - half);
    return phase < 0.5 ? arch : -arch;
}

static tremolux_move make_move(const double *numbers) {
    const tremolux_move_info info = {sizeof(info), 0, kFrames, 30, 1, 36};
    tremolux_move move = NULL;
    check(tremolux_move_from_numbers(&info, numbers, kNumbers, &move), NULL);
    return move;
}

/* A camera that walks, turns, zooms and focuses. */
static tremolux_move make_camera(void) {
    static double numbers[kNumbers];
    for (int frame = 0; frame < kFrames; ++frame) {
        double *now = numbers + frame * TREMOLUX_NUMBERS_PER_FRAME;
        now[0] = 120 * sway(frame, 150);
        now[1] = 160 + 6 * sway(frame, 23);
        now[2] = 3.5 * frame;
        now[3] = 0.6 * sway(frame, 110);
        now[4] = 0.2 * sway(frame, 67);
        now[5] = 0.05 * sway(frame, 41);
        now[6] = 40 + 12 * sway(frame, 90);
        now[7] = 700 + 250 * sway(frame, 130);
    }
    return make_move(numbers);
}

/* What it looks at: somebody who crosses its way, far enough ahead never to be passed. */
static tremolux_move make_target(void) {
    static double numbers[kNumbers];
    for (int frame = 0; frame < kFrames; ++frame) {
        double *now = numbers + frame * TREMOLUX_NUMBERS_PER_FRAME;
        now[0] = 300 * sway(frame, 200);
        now[1] = 150 + 30 * sway(frame, 75);
        now[2] = 1600 + 2.5 * frame;
        now[6] = 36;
    }
    return make_move(numbers);
}

/* Whatever a preset leaves off. */
static void switch_on_every_layer(tremolux_shot shot) {
    for (size_t i = 0; i < tremolux_parameter_count(); ++i) {
        tremolux_parameter parameter = {.size = sizeof(parameter)};
        check(tremolux_parameter_at(i, &parameter), NULL);
        if (parameter.kind == TREMOLUX_SWITCH) check(tremolux_shot_set(shot, parameter.id, 1), shot);
    }
}

static tremolux_shot make_shot(tremolux_move camera, tremolux_move target, size_t index, tremolux_preset *preset) {
    tremolux_shot shot = NULL;
    preset->size = sizeof(*preset);
    check(tremolux_preset_at(index, preset), NULL);
    check(tremolux_shot_new(camera, &shot), camera);
    check(tremolux_shot_apply_preset(shot, preset->name), shot);
    switch_on_every_layer(shot);
    check(tremolux_shot_set_target(shot, target), shot);
    check(tremolux_shot_set_focus_object(shot, target), shot);
    check(tremolux_shot_play(shot, NULL, NULL), shot);
    return shot;
}

static void print_played(tremolux_move camera, tremolux_move target, size_t index) {
    static double numbers[kNumbers];
    tremolux_preset preset;
    tremolux_shot shot = make_shot(camera, target, index, &preset);
    check(tremolux_shot_numbers(shot, numbers, kNumbers), shot);
    check(tremolux_shot_free(shot), NULL);
    printf("# %s/%s\n", preset.category, preset.name);
    for (int i = 0; i < kNumbers; ++i)
        printf("%.17g%c", numbers[i], (i + 1) % TREMOLUX_NUMBERS_PER_FRAME == 0 ? '\n' : ' ');
}

/* Of the wall. What clock() counts is that on Windows, which has no timespec_get, and under Node; elsewhere it is the
 * process's own time, which others on the machine do not add to. */
static double seconds_now(void) {
#ifdef _WIN32
    return (double)clock() / CLOCKS_PER_SEC;
#else
    struct timespec now;
    if (timespec_get(&now, TIME_UTC) == TIME_UTC) return (double)now.tv_sec + 1e-9 * (double)now.tv_nsec;
    fprintf(stderr, "every_preset: found no time of day, expected one to measure by\n");
    exit(EXIT_FAILURE);
#endif
}

static void print_time(tremolux_move camera, tremolux_move target, long repeats) {
    tremolux_preset preset;
    tremolux_shot shot = make_shot(camera, target, 0, &preset);
    const double begin = seconds_now();
    for (long i = 0; i < repeats; ++i) check(tremolux_shot_play(shot, NULL, NULL), shot);
    const double seconds = seconds_now() - begin;
    printf("%.3f\n", 1e6 * seconds / ((double)repeats * kFrames));
    check(tremolux_shot_free(shot), NULL);
}

int main(int argc, char **argv) {
    char *end = NULL;
    const long repeats = argc == 2 ? strtol(argv[1], &end, 10) : 0;
    if (argc > 2 || (end != NULL && (*end != '\0' || repeats < 1 || repeats > 100000))) {
        fprintf(stderr, "every_preset: found '%s', expected nothing or a number of repeats from 1 to 100000\n", argv[argc - 1]);
        return EXIT_FAILURE;
    }
    const size_t presets = tremolux_preset_count();
    if (presets == 0) {
        fprintf(stderr, "every_preset: found no presets, expected the built-in ones\n");
        return EXIT_FAILURE;
    }
    const tremolux_move camera = make_camera(), target = make_target();
    if (repeats > 0) print_time(camera, target, repeats);
    for (size_t i = 0; repeats == 0 && i < presets; ++i) print_played(camera, target, i);
    check(tremolux_move_free(target), NULL);
    check(tremolux_move_free(camera), NULL);
    return fflush(stdout) == 0 && !ferror(stdout) ? EXIT_SUCCESS : EXIT_FAILURE;
}
