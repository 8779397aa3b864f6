#include "tremolux/pictures/film.h"

#include <algorithm>
#include <cmath>

#include "host/files/safe_write.h"
#include "host/scene/angles.h"
#include "host/value/text.h"
#include "library/failure.h"
#include "library/formats/source_text.h"
#include "tremolux/pictures/tool.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

constexpr int kFrameWidth = 480, kLeastHeight = 60, kMostHeight = 960, kBorder = 6;
constexpr std::size_t kStripFrames = 6;
constexpr int kMostGifRate = 25;  // readers slow a faster one down
constexpr double kInsetScale = 10;
constexpr Colour kInput = {0.55F, 0.57F, 0.59F}, kShaken = {0.84F, 0.37F, 0.0F};

std::vector<std::string> Encoder(FilmFormat format, const FrameRate &rate) {
    if (format == FilmFormat::kPng) return {"-frames:v", "1", "-f", "image2", "-c:v", "png"};
    if (format == FilmFormat::kMp4) {
        return {"-c:v",     "libx264", "-preset",   "medium",     "-crf", "23",
                "-pix_fmt", "yuv420p", "-movflags", "+faststart", "-f",   "mp4"};
    }
    return {"-vf",
            "fps=" + (rate.PerSecond() > kMostGifRate ? std::to_string(kMostGifRate) : FrameRateText(rate)) +
                ",split[a][b];[a]palettegen=stats_mode=diff[p];[b][p]paletteuse=dither=bayer:bayer_scale=4",
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

Picture Framed(const Picture &left, const Picture &right) {
    Picture both(2 * left.width + 3 * kBorder, left.height + 2 * kBorder, kInput);
    const Picture edge(right.width + 2 * kBorder, right.height + 2 * kBorder, kShaken);
    both.Paste(edge, both.width - edge.width, 0);
    both.Paste(left, kBorder, kBorder);
    both.Paste(right, left.width + 2 * kBorder, kBorder);
    return both;
}

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

Picture SideBySide(const World &world, const PlayedMotion &motion, std::size_t index, const FrameSize &size) {
    const double aperture = motion.output.aperture_width;
    return Framed(Look(world, motion.input.samples[index], aperture, size.width, size.height),
                  Look(world, motion.output.samples[index], aperture, size.width, size.height));
}

std::string MakeFilm(const PlayedMotion &motion, FilmFormat format, const FrameSize &size,
                     const std::function<void(std::int64_t)> &done) {
    const World world = MakeWorld(motion.input);
    const int width = 2 * size.width + 3 * kBorder, height = size.height + 2 * kBorder;
    const std::size_t frames = motion.output.samples.size();
    if (format == FilmFormat::kPng) {
        const std::size_t rows = std::min(kStripFrames, frames);
        Picture strip(width, height * static_cast<int>(rows));
        for (std::size_t row = 0; row < rows; ++row) {
            const std::size_t index = rows > 1 ? row * (frames - 1) / (rows - 1) : 0;
            strip.Paste(SideBySide(world, motion, index, size), 0, height * static_cast<int>(row));
            done(static_cast<std::int64_t>((row + 1) * frames / rows));
        }
        return PngOf(strip);
    }
    Encoding encoding(format, width, height, motion.output.rate);
    for (std::size_t index = 0; index < frames; ++index) {
        encoding.Add(SideBySide(world, motion, index, size));
        done(static_cast<std::int64_t>(index + 1));
    }
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
