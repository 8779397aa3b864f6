/* Every number of an analytic move under every preset, one preset a line: what is compared between the targets.
 *
 *   every_preset          prints the numbers
 *   every_preset REPEATS  plays 300 frames with every layer on that often instead, and prints the seconds */
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <time.h>
#include <tremolux/tremolux.h>

enum { FRAMES = 270, TIMED_FRAMES = 300 };
static double numbers[TIMED_FRAMES * TREMOLUX_NUMBERS_PER_FRAME];

static void check(tremolux_status status, const void *handle) {
    if (status == TREMOLUX_OK) return;
    fprintf(stderr, "every_preset: %s\n", tremolux_last_error(handle));
    exit(1);
}

/* A camera that goes forward in a wave, pans turn after turn, pitches, and zooms. */
static tremolux_move analytic_move(int frames) {
    for (int frame = 0; frame < frames; ++frame) {
        double *now = numbers + frame * TREMOLUX_NUMBERS_PER_FRAME;
        now[0] = 3.0 * frame;
        now[1] = 150 + 20 * sin(frame / 20.0);
        now[2] = -2.0 * frame;
        now[3] = frame / 15.0;
        now[4] = sin(frame / 40.0) / 3;
        now[5] = 0;
        now[6] = 36 + frame / 10.0;
        now[7] = 900 - frame;
    }
    const tremolux_move_info info = {sizeof(info), 0, (uint64_t)frames, 30, 1, 36};
    tremolux_move move;
    check(tremolux_move_from_numbers(&info, numbers, (size_t)frames * TREMOLUX_NUMBERS_PER_FRAME, &move), NULL);
    return move;
}

static void play(tremolux_move move, const char *preset) {
    tremolux_shot shot;
    check(tremolux_shot_new(move, &shot), move);
    check(tremolux_shot_apply_preset(shot, preset), shot);
    check(tremolux_shot_play(shot, NULL, NULL), shot);
    check(tremolux_shot_numbers(shot, numbers, TIMED_FRAMES * TREMOLUX_NUMBERS_PER_FRAME), shot);
    check(tremolux_shot_free(shot), NULL);
}

static void print_every_preset(void) {
    const tremolux_move move = analytic_move(FRAMES);
    for (size_t i = 0; i < tremolux_preset_count(); ++i) {
        tremolux_preset preset = {.size = sizeof(preset)};
        check(tremolux_preset_at(i, &preset), NULL);
        play(move, preset.name);
        printf("%s/%s", preset.category, preset.name);
        for (size_t j = 0; j < FRAMES * TREMOLUX_NUMBERS_PER_FRAME; ++j) printf("\t%.17g", numbers[j]);
        printf("\n");
    }
    check(tremolux_move_free(move), NULL);
}

/* What the busiest preset leaves out: drift of zoom and focus, by the numbers of the parameters. */
static const char *const drifts[] = {"6016=on", "6017=on", "6134=2%", "6135=2%", "6136=2%", "6128=1", "6129=1", "6130=1"};

static void time_every_layer(int repeats) {
    const tremolux_move move = analytic_move(TIMED_FRAMES);
    tremolux_shot shot;
    check(tremolux_shot_new(move, &shot), move);
    check(tremolux_shot_apply_preset(shot, "Earthquake"), shot);
    for (size_t i = 0; i < sizeof(drifts) / sizeof(*drifts); ++i) check(tremolux_shot_set_text(shot, drifts[i]), shot);
    check(tremolux_shot_set_target(shot, move), shot);
    check(tremolux_shot_set_focus_object(shot, move), shot);
    check(tremolux_shot_play(shot, NULL, NULL), shot);
    struct timespec begin, end;
    timespec_get(&begin, TIME_UTC);
    for (int i = 0; i < repeats; ++i) check(tremolux_shot_play(shot, NULL, NULL), shot);
    timespec_get(&end, TIME_UTC);
    printf("%.6f\n", (double)(end.tv_sec - begin.tv_sec) + 1e-9 * (double)(end.tv_nsec - begin.tv_nsec));
    check(tremolux_shot_free(shot), NULL);
    check(tremolux_move_free(move), NULL);
}

int main(int argc, char **argv) {
    if (argc == 1) {
        print_every_preset();
        return 0;
    }
    char *end = argv[1];
    const long repeats = strtol(argv[1], &end, 10);
    if (argc > 2 || *end != '\0' || repeats < 1 || repeats > 100000) {
        fprintf(stderr, "every_preset: found %s, expected one number of repeats, 1 to 100000\n", argv[argc - 1]);
        return 2;
    }
    time_every_layer((int)repeats);
    return 0;
}
