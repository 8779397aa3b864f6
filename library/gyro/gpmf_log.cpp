#include "library/gyro/gpmf_log.h"

#include <algorithm>

#include "library/failure.h"
#include "library/formats/source_text.h"
#include "library/gyro/gpmf.h"
#include "library/gyro/mp4_index.h"
#include "library/gyro/sensor_axes.h"
#include "library/gyro/words.h"

namespace tremolux {
namespace {

// Order of the sensors' columns in cameras that do not say it.
constexpr std::string_view kOlderAxes = "ZXY";
// What these cameras call X points to the left of the picture, Y backwards and Z up.
constexpr std::string_view kPictureOfCamera = "xZY";

constexpr double kSecondsOfPayload = 1;
constexpr double kLongestPayload = 10;  // seconds; more between two clock readings is a gap

// Hours at thousands a second; more would be a gigabyte.
constexpr std::size_t kMaxSamples = std::size_t{1} << 25;
constexpr std::size_t kMaxPayloadsBytes = std::size_t{1} << 26;

struct PayloadSpan {
    double start, duration;  // seconds
};

// From columns to the axes X, Y and Z of the camera: the letters say which axis each column is.
std::optional<Eigen::Matrix3d> AxesOfColumns(std::string_view letters) {
    const std::optional<Eigen::Matrix3d> columns = AxesOfLetters(letters);
    if (!columns) return std::nullopt;
    return Eigen::Matrix3d(columns->transpose());
}

class GpmfLog {
  public:
    explicit GpmfLog(std::string file) : file_(std::move(file)) {}

    void Add(const GpmfDevice &device, const PayloadSpan &span) {
        if (device.streams.empty()) return;
        if (!device_) {
            device_ = device.id;
            log_.camera = PrintableWords(device.name);
        }
        if (device.id != *device_) {
            if (!has_other_device_) Note("another device, " + Quoted(device.name) + ", is left out");
            has_other_device_ = true;
            return;
        }
        for (const GpmfStream &stream : device.streams) Add(stream, span);
    }

    void Note(const std::string &note) {
        if (std::find(log_.notes.begin(), log_.notes.end(), note) == log_.notes.end()) log_.notes.push_back(note);
    }

    GyroLog Finished() {
        if (log_.rates.empty() && log_.orientations.empty())
            throw Failure(kExitInput, file_ + ": found no rates and no orientations, expected a camera's motion ('GYRO' or 'CORI')");
        KeepRising(&log_);
        return std::move(log_);
    }

    GyroLog *Log() { return &log_; }

  private:
    void Add(const GpmfStream &stream, const PayloadSpan &span) {
        samples_ += stream.Rows();
        if (samples_ > kMaxSamples)
            throw Failure(kExitInput, file_ + ": found more samples, expected at most " + std::to_string(kMaxSamples));
        const auto step = span.duration / static_cast<double>(stream.Rows());
        const bool is_orientation = stream.key == "CORI";
        const Eigen::Matrix3d axes = stream.key == "GYRO" || stream.key == "ACCL" ? SensorToPicture(stream) : Eigen::Matrix3d();
        for (std::size_t row = 0; row < stream.Rows(); ++row) {
            const double time = span.start + static_cast<double>(row) * step;
            const double *v = &stream.values[row * stream.columns];
            if (is_orientation) {
                AddOrientation(time, v);
            } else if (stream.key == "GRAV") {
                // Right, down and forwards.
                AddSensor(&GyroLog::gravity, kMaxAcceleration, {time, {v[0], -v[1], -v[2]}});
            } else if (stream.key == "GYRO") {
                AddSensor(&GyroLog::rates, kMaxAngularRate, {time, axes * Eigen::Vector3d(v[0], v[1], v[2])});
            } else {
                AddSensor(&GyroLog::accelerations, kMaxAcceleration, {time, axes * Eigen::Vector3d(v[0], v[1], v[2])});
            }
        }
    }

    void AddSensor(std::vector<GyroSample> GyroLog::*samples, double limit, const GyroSample &sample) {
        if (!sample.value.allFinite() || sample.value.cwiseAbs().maxCoeff() > limit)
            throw Failure(kExitInput, file_ + ": found what no sensor measures after " + std::to_string(sample.time) +
                                          " s, expected radians a second and metres a second squared");
        (log_.*samples).push_back(sample);
    }

    // Of the world in the camera's axes right, down and forwards: its inverse, with two axes turned round, is the camera's
    // orientation.
    void AddOrientation(double time, const double *v) {
        const Eigen::Quaterniond rotation(v[0], -v[1], v[2], v[3]);
        if (rotation.norm() > 0.5 && rotation.norm() < 2)
            log_.orientations.push_back({time, rotation.normalized()});
        else
            Note("orientations that are none are left out");
    }

    Eigen::Matrix3d SensorToPicture(const GpmfStream &stream) {
        const Eigen::Matrix3d picture = *AxesOfLetters(kPictureOfCamera);
        if (!stream.axes.empty()) {
            if (const std::optional<Eigen::Matrix3d> axes = AxesOfColumns(stream.axes)) return picture * *axes;
            throw Failure(kExitInput, file_ + ": found the axes " + Quoted(stream.axes) + " ('ORIN'), expected X, Y and Z, each once");
        }
        if (!stream.matrix.empty()) {
            const std::optional<Eigen::Matrix3d> wanted = AxesOfColumns(stream.wanted_axes.empty() ? kOlderAxes : stream.wanted_axes);
            if (wanted && stream.matrix.size() == 9)
                return picture * *wanted * Eigen::Map<const Eigen::Matrix<double, 3, 3, Eigen::RowMajor>>(stream.matrix.data());
            throw Failure(kExitInput, file_ + ": found a matrix ('MTRX') that is none, expected 3 rows and 3 columns, and its axes ('ORIO')");
        }
        Note("the camera does not say its sensors' axes: taken as " + std::string(kOlderAxes) + ", as older cameras have them");
        return picture * *AxesOfColumns(kOlderAxes);
    }

    const std::string file_;
    GyroLog log_;
    std::optional<std::uint64_t> device_;
    bool has_other_device_ = false;
    std::size_t samples_ = 0;
};

bool HasMotion(const GpmfDevice &device) { return !device.streams.empty(); }

std::optional<std::uint64_t> ClockOf(const GpmfDevice &device) {
    for (const GpmfStream &stream : device.streams) {
        if (stream.time) return stream.time;
    }
    return std::nullopt;
}

// By the camera's clock where this payload and the next one say it.
double SecondsTo(const GpmfDevice &device, const GpmfDevice *next) {
    const std::optional<std::uint64_t> from = ClockOf(device), to = next != nullptr ? ClockOf(*next) : std::nullopt;
    if (!from || !to || *to <= *from) return kSecondsOfPayload;
    const double seconds = static_cast<double>(*to - *from) * 1e-6;
    return seconds <= kLongestPayload ? seconds : kSecondsOfPayload;
}

}  // namespace

GyroLog ReadFilmLog(const std::string &file, ByteSource *source) {
    const FilmIndex index = ReadFilmIndex(file, source);
    GpmfLog log(file);
    log.Log()->frame_rate = index.frame_rate;
    for (std::size_t i = 0; i < index.payloads.size(); ++i) {
        const FilmPayload &payload = index.payloads[i];
        const std::string bytes = source->Read(payload.offset, payload.size);
        for (const GpmfDevice &device : ReadGpmf(file + ": payload " + std::to_string(i + 1), bytes))
            log.Add(device, {payload.start, payload.duration});
    }
    return log.Finished();
}

GyroLog ReadPayloadLog(const std::string &file, std::string_view bytes) {
    if (bytes.size() > kMaxPayloadsBytes)
        throw Failure(kExitInput, file + ": found " + std::to_string(bytes.size()) + " bytes, expected payloads of at most " +
                                      std::to_string(kMaxPayloadsBytes));
    std::vector<GpmfDevice> devices = ReadGpmf(file, bytes);
    devices.erase(std::remove_if(devices.begin(), devices.end(), [](const GpmfDevice &device) { return !HasMotion(device); }),
                  devices.end());
    GpmfLog log(file);
    log.Note("payloads without a film do not say how long they last: taken as a second each, or as their clock says");
    double start = 0;
    for (std::size_t i = 0; i < devices.size(); ++i) {
        // Devices beside each other share their second.
        if (devices[i].id != devices.front().id) {
            log.Add(devices[i], {start, kSecondsOfPayload});
            continue;
        }
        const auto next = std::find_if(devices.begin() + static_cast<std::ptrdiff_t>(i) + 1, devices.end(),
                                       [&](const GpmfDevice &device) { return device.id == devices.front().id; });
        const double seconds = SecondsTo(devices[i], next == devices.end() ? nullptr : &*next);
        log.Add(devices[i], {start, seconds});
        start += seconds;
    }
    return log.Finished();
}

}  // namespace tremolux
