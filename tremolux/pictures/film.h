// Previews of a played motion: the input camera's picture on the left, the shaken camera's on the right.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "library/moves/played_motion.h"
#include "tremolux/pictures/picture.h"

namespace tremolux {

enum class FilmFormat { kMp4, kGif, kPng };
// By the extension; throws a Failure for another than .mp4, .gif and .png.
FilmFormat FilmFormatOf(const std::filesystem::path &file);

// Pixels of one camera's picture with the proportions of `width` to `height`, both even.
struct FrameSize {
    int width, height;
};
FrameSize PreviewSize(int width, int height);

struct FilmLook {
    FrameSize size;            // of one camera's picture
    bool only_shaken = false;  // without the input camera's
    std::string caption;       // below the pictures, with the frame's number; ASCII
};

// The encoded film, by ffmpeg; of a .png six frames below each other. `done` is called with the frames that are drawn.
// Throws a Failure.
std::string MakeFilm(const PlayedMotion &motion, FilmFormat format, const FilmLook &look,
                     const std::function<void(std::int64_t)> &done);
// The file of one picture (.png), by ffmpeg. Throws a Failure.
std::string PngOf(const Picture &picture);

// The input camera's picture with the way that the shaken camera's aim takes over it, and the frame of the picture that
// is furthest off: a motion in one picture. A way too short to see is also shown ten times as large.
Picture MotionTrail(const PlayedMotion &motion, const FrameSize &size);

}  // namespace tremolux
