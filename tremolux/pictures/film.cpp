#include "tremolux/pictures/film.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "host/files/safe_write.h"
#include "host/scene/angles.h"
#include "host/value/text.h"
#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "tremolux/pictures/lettering.h"
#include "tremolux/pictures/tool.h"
#include "tremolux/process/in_order.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

constexpr int kFrameWidth = 480, kLeastHeight = 60, kMostHeight = 960, kBorder = 6;
constexpr int kLetterGap = 4, kCaptionHeight = kLetterHeight + 2 * kLetterGap + 1;  // even, as films need it
constexpr std::size_t kStripFrames = 6;
constexpr double kMostGifRate =
    12.5;  // ten seconds then take less than four megabytes, at whole hundredths of a second
constexpr double kInsetScale = 10;
constexpr Colour kInput = {0.55F, 0.57F, 0.59F}, kShaken = {0.84F, 0.37F, 0.0F}, kPaper = {1, 1, 1},
                 kInk = {0.2F, 0.2F, 0.2F};

std::vector<std::string> Encoder(FilmFormat format, const FrameRate &rate) {
    if (format == FilmFormat::kPng) return {"-frames:v", "1", "-f", "image2", "-c:v", "png"};
    if (format == FilmFormat::kMp4) {
        // With so many threads everywhere: the bytes depend on their number.
        return {"-c:v", "libx264",  "-preset", "veryfast",  "-crf",       "21", "-threads",
                "2",    "-pix_fmt", "yuv420p", "-movflags", "+faststart", "-f", "mp4"};
    }
    return {"-vf",
            "fps=" + (rate.PerSecond() > kMostGifRate ? FormatNumber(kMostGifRate) : FrameRateText(rate)) +
                ",split[a][b];[a]palettegen=max_colors=64:stats_mode=diff[p];[b][p]paletteuse=dither=none",
            "-f", "gif"};
}

// Pictures one after the other into ffmpeg, which leaves one file.
class Encoding {
  public:
    Encoding(FilmFormat format, int width, int height, const FrameRate &rate)
        : file_(folder_.Path() / "film"), ffmpeg_(Command(format, width, height, rate), "ffmpeg", folder_) {}
    void Add(const Picture &picture) { ffmpeg_.Write(picture.rgb); }
    std::string Finish() {
        ffmpeg_.Finish();
        std::string bytes, error;
        if (!host::ReadFile(file_, &bytes, &error)) throw Failure(kExitOutput, "ffmpeg left no file: " + error);
        return bytes;
    }

  private:
    std::vector<std::string> Command(FilmFormat format, int width, int height, const FrameRate &rate) const {
        std::vector<std::string> command = {"ffmpeg",
                                            "-hide_banner",
                                            "-loglevel",
                                            "error",
                                            "-f",
                                            "rawvideo",
                                            "-pix_fmt",
                                            "rgb24",
                                            "-s",
                                            std::to_string(width) + "x" + std::to_string(height),
                                            "-r",
                                            FrameRateText(rate),
                                            "-i",
                                            "-",
                                            "-map_metadata",
                                            "-1",
                                            "-fflags",
                                            "+bitexact",
                                            "-flags:v",
                                            "+bitexact"};
        for (const std::string &word : Encoder(format, rate)) command.push_back(word);
        command.push_back("-y");
        command.push_back(host::PathText(file_));
        return command;
    }

    const TemporaryFolder folder_;
    const fs::path file_;
    Tool ffmpeg_;
};

// The pictures of a frame, the input camera's in a grey border, the shaken one's in an orange one, and the caption
// below.
class Frames {
  public:
    Frames(const PlayedMotion &motion, const FilmLook &look)
        : motion_(motion),
          look_(look),
          world_(MakeWorld(motion.input)),
          digits_(std::max(std::to_string(motion.output.first_frame).size(),
                           std::to_string(motion.output.LastFrame()).size())) {
        const CameraSample &first = motion.input.samples.front();
        const bool stands_still =
            std::all_of(motion.input.samples.begin(), motion.input.samples.end(), [&first](const CameraSample &sample) {
                return sample.position == first.position && sample.angles == first.angles &&
                       sample.focal_length == first.focal_length && sample.focus_distance == first.focus_distance;
            });
        if (stands_still && !look.only_shaken) still_ = Look(first);
    }
    int Width() const { return (look_.only_shaken ? look_.size.width : 2 * look_.size.width + kBorder) + 2 * kBorder; }
    int Height() const { return look_.size.height + 2 * kBorder + kCaptionHeight; }

    Picture At(std::size_t index) const {
        Picture frame(Width(), Height(), kPaper);
        const int row = look_.size.height + 2 * kBorder,
                  shaken = look_.only_shaken ? kBorder : look_.size.width + 2 * kBorder;
        if (!look_.only_shaken) {
            frame.Paste(Picture(look_.size.width + kBorder, row, kInput), 0, 0);
            frame.Paste(still_ ? *still_ : Look(motion_.input.samples[index]), kBorder, kBorder);
        }
        frame.Paste(Picture(look_.size.width + 2 * kBorder, row, kShaken), shaken - kBorder, 0);
        frame.Paste(Look(motion_.output.samples[index]), shaken, kBorder);
        std::string number = std::to_string(motion_.output.first_frame + static_cast<std::int64_t>(index));
        number.insert(0, digits_ - number.size(), ' ');
        number = "frame " + number;
        Write(look_.caption, kBorder, row + kLetterGap, kInk, &frame);
        // The number has its place for itself.
        const int place = Width() - kBorder - WidthOf(number);
        frame.Paste(Picture(Width() - place + kLetterWidth, kCaptionHeight, kPaper), place - kLetterWidth, row);
        Write(number, place, row + kLetterGap, kInk, &frame);
        return frame;
    }

  private:
    Picture Look(const CameraSample &sample) const {
        return tremolux::Look(world_, sample, motion_.output.aperture_width, look_.size.width, look_.size.height);
    }
    const PlayedMotion &motion_;
    const FilmLook &look_;
    const World world_;
    const std::size_t digits_;
    std::optional<Picture> still_;  // of an input camera that does not move
};

// Where a camera sees a point that another has in its picture at u, v (tangents to the right and up) and in focus;
// pixels of a picture in the middle of `size`. false when it is behind.
bool Seen(const CameraSample &from, double u, double v, const CameraSample &by, double aperture, const FrameSize &size,
          double *x, double *y) {
    const host::Matrix a = host::HpbToMatrix(from.angles), b = host::HpbToMatrix(by.angles);
    const host::Vector point = from.position + (a.v3 + a.v1 * u + a.v2 * v) * std::max(from.focus_distance, 10.0);
    const host::Vector seen = point - by.position;
    const double depth = host::Dot(seen, b.v3);
    if (depth < 1) return false;
    const double pixels = by.focal_length / aperture * size.width;
    *x = size.width / 2.0 + host::Dot(seen, b.v1) / depth * pixels;
    *y = size.height / 2.0 - host::Dot(seen, b.v2) / depth * pixels;
    return true;
}

// The way that the aim took, enlarged, in a light rectangle in the upper left corner.
void DrawInset(const std::vector<host::Vector> &way, const FrameSize &size, Picture *picture) {
    const int width = size.width / 4, height = size.height / 4;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) picture->Blend(kBorder + x, kBorder + y, {1, 1, 1}, 0.75);
    }
    const auto place = [&](const host::Vector &aim) {
        return host::Vector{kBorder + width / 2.0 + kInsetScale * (aim.x - size.width / 2.0),
                            kBorder + height / 2.0 + kInsetScale * (aim.y - size.height / 2.0), 0};
    };
    for (std::size_t i = 1; i < way.size(); ++i) {
        const host::Vector from = place(way[i - 1]), to = place(way[i]);
        picture->DrawLine(from.x, from.y, to.x, to.y, 1.2, kShaken);
    }
}

}  // namespace

FilmFormat FilmFormatOf(const fs::path &file) {
    const std::string extension = host::PathText(file.extension());
    if (extension == ".mp4") return FilmFormat::kMp4;
    if (extension == ".gif") return FilmFormat::kGif;
    if (extension == ".png") return FilmFormat::kPng;
    throw Failure(kExitInput, host::PathText(file) + ": found the extension " + Quoted(extension) +
                                  ", expected .mp4, .gif or .png");
}

FrameSize PreviewSize(int width, int height) {
    const double rows = static_cast<double>(kFrameWidth) * height / width;
    return {kFrameWidth, static_cast<int>(std::clamp(rows / 2, kLeastHeight / 2.0, kMostHeight / 2.0)) * 2};
}

std::string MakeFilm(const PlayedMotion &motion, FilmFormat format, const FilmLook &look,
                     const std::function<void(std::int64_t)> &done) {
    const Frames pictures(motion, look);
    const std::size_t frames = motion.output.samples.size();
    if (format == FilmFormat::kPng) {
        const std::size_t rows = std::min(kStripFrames, frames);
        Picture strip(pictures.Width(), pictures.Height() * static_cast<int>(rows));
        for (std::size_t row = 0; row < rows; ++row) {
            const std::size_t index = rows > 1 ? row * (frames - 1) / (rows - 1) : 0;
            strip.Paste(pictures.At(index), 0, pictures.Height() * static_cast<int>(row));
            done(static_cast<std::int64_t>((row + 1) * frames / rows));
        }
        return PngOf(strip);
    }
    Encoding encoding(format, pictures.Width(), pictures.Height(), motion.output.rate);
    MakeInOrder(
        frames, [&](std::size_t index) { return pictures.At(index); },
        [&](std::size_t index, const Picture &picture) {
            encoding.Add(picture);
            done(static_cast<std::int64_t>(index + 1));
        });
    return encoding.Finish();
}

std::string PngOf(const Picture &picture) {
    Encoding encoding(FilmFormat::kPng, picture.width, picture.height, FrameRate{1, 1});
    encoding.Add(picture);
    return encoding.Finish();
}

Picture MotionTrail(const PlayedMotion &motion, const FrameSize &size) {
    const CameraSample &still = motion.input.samples.front();
    const double aperture = motion.output.aperture_width;
    Picture picture = Look(MakeWorld(motion.input), still, aperture, size.width, size.height);
    double furthest = -1;
    std::vector<host::Vector> way;
    const CameraSample *off = &still;
    for (const CameraSample &sample : motion.output.samples) {
        double x, y;
        if (!Seen(sample, 0, 0, still, aperture, size, &x, &y)) continue;
        way.push_back({x, y, 0});
        const double distance = std::hypot(x - size.width / 2.0, y - size.height / 2.0);
        if (distance <= furthest) continue;
        furthest = distance;
        off = &sample;
    }
    for (std::size_t i = 1; i < way.size(); ++i)
        picture.DrawLine(way[i - 1].x, way[i - 1].y, way[i].x, way[i].y, 1.6, kShaken);
    if (kInsetScale * furthest < size.height / 8.0) DrawInset(way, size, &picture);
    const double u = aperture / off->focal_length / 2, v = u * size.height / size.width;
    const double corners[][2] = {{-u, -v}, {u, -v}, {u, v}, {-u, v}, {-u, -v}};
    double from_x = 0, from_y = 0;
    for (int i = 0; i < 5; ++i) {
        double x, y;
        // A little inside, so that the frame of a camera that hardly moves is seen too.
        if (!Seen(*off, 0.97 * corners[i][0], 0.97 * corners[i][1], still, aperture, size, &x, &y)) break;
        if (i > 0) picture.DrawLine(from_x, from_y, x, y, 1.2, kShaken);
        from_x = x;
        from_y = y;
    }
    return picture;
}

}  // namespace tremolux
