#include "library/gyro/rate_table.h"

#include <algorithm>
#include <cmath>

#include "host/value/radians.h"
#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/gyro/sensor_axes.h"
#include "library/gyro/sensor_time.h"

namespace tremolux {
namespace {

constexpr double kMaxReading = 1e12;
// Above it, on average, no hand turns: the table is in degrees.
constexpr double kMostTurning = 5;  // radians a second
constexpr double kMostGravity = 3;  // a mean acceleration below it is in g, not metres a second squared

struct RateTableRows {
    std::vector<double> times;
    std::vector<GyroSample> rates, accelerations;
    std::vector<Eigen::Vector4d> quaternions;  // w, x, y, z
    std::vector<Eigen::Vector3d> angles;       // yaw, pitch, roll
};

template <std::size_t kCount>
Eigen::Matrix<double, static_cast<int>(kCount), 1> Numbers(const SourceText &source, const Line &line,
                                                           const std::vector<Field> &fields,
                                                           const ColumnGroup<kCount> &group, const char *name) {
    Eigen::Matrix<double, static_cast<int>(kCount), 1> numbers;
    for (std::size_t i = 0; i < kCount; ++i)
        numbers[static_cast<int>(i)] =
            source.Number(line, fields[group.places[i]], name, -kMaxReading, kMaxReading);
    return numbers;
}

template <std::size_t kCount>
void Widen(const std::optional<ColumnGroup<kCount>> &group, std::size_t *most) {
    if (group) *most = std::max(*most, *std::max_element(group->places.begin(), group->places.end()));
}

std::size_t FewestFields(const RateColumns &columns) {
    std::size_t most = columns.time.place;
    Widen(columns.rates, &most);
    Widen(columns.accelerations, &most);
    Widen(columns.quaternions, &most);
    Widen(columns.angles, &most);
    return most + 1;
}

RateTableRows ReadRows(const SourceText &source, const RateColumns &columns) {
    RateTableRows rows;
    const std::size_t fewest = FewestFields(columns);
    for (std::size_t i = columns.line + 1; i < source.Lines().size(); ++i) {
        const Line &line = source.Lines()[i];
        const std::string_view text = Trimmed(line.text);
        if (text.empty() || text.front() == '#') continue;
        const std::vector<Field> fields = SeparatedFields(line.text, columns.separator);
        if (fields.size() < fewest)
            source.Refuse(line.number, 1, CountText(line, fields.size()), "at least " + std::to_string(fewest));
        const double time = source.Number(line, fields[columns.time.place], "the time", -kMaxTime, kMaxTime);
        rows.times.push_back(time);
        if (columns.rates) rows.rates.push_back({time, Numbers(source, line, fields, *columns.rates, "a rate")});
        if (columns.accelerations)
            rows.accelerations.push_back(
                {time, Numbers(source, line, fields, *columns.accelerations, "an acceleration")});
        if (columns.quaternions) {
            rows.quaternions.emplace_back(Numbers(source, line, fields, *columns.quaternions, "a quaternion"));
            const double length = rows.quaternions.back().norm();
            if (!(length > 0.5 && length < 2))
                source.RefuseField(line, fields[columns.quaternions->places[0]], "a quaternion of length 1");
        }
        if (columns.angles) rows.angles.emplace_back(Numbers(source, line, fields, *columns.angles, "an angle"));
    }
    return rows;
}

Eigen::Vector3d MeanValue(const std::vector<GyroSample> &samples) {
    Eigen::Vector3d sum = Eigen::Vector3d::Zero();
    for (const GyroSample &sample : samples) sum += sample.value;
    return samples.empty() ? sum : Eigen::Vector3d(sum / static_cast<double>(samples.size()));
}

double MeanLength(const std::vector<GyroSample> &samples) {
    double sum = 0;
    for (const GyroSample &sample : samples) sum += sample.value.norm();
    return samples.empty() ? 0 : sum / static_cast<double>(samples.size());
}

AngleUnit UnitOfRates(const RateTableRows &rows, const RateColumns &columns, const RateTableOptions &options,
                      GyroLog *log) {
    if (options.unit) return *options.unit;
    if (columns.rates->unit) return *columns.rates->unit;
    const bool is_degrees = MeanLength(rows.rates) > kMostTurning;
    log->notes.push_back("the header does not say the unit of the rates: taken as " +
                         std::string(is_degrees ? "degrees" : "radians") + " a second, by their size (--rates says it)");
    return is_degrees ? AngleUnit::kDegrees : AngleUnit::kRadians;
}

AngleUnit UnitOfAngles(const RateTableRows &rows, const RateColumns &columns, const RateTableOptions &options,
                       GyroLog *log) {
    if (options.unit) return *options.unit;
    if (columns.angles->unit) return *columns.angles->unit;
    constexpr double kWholeTurn = 6.4;
    const bool is_degrees = std::any_of(rows.angles.begin(), rows.angles.end(), [](const Eigen::Vector3d &angles) {
        return angles.cwiseAbs().maxCoeff() > kWholeTurn;
    });
    log->notes.push_back("the header does not say the unit of the angles: taken as " +
                         std::string(is_degrees ? "degrees" : "radians") + ", by their size (--rates says it)");
    return is_degrees ? AngleUnit::kDegrees : AngleUnit::kRadians;
}

// Of a phone that is held upright, or on one of its long sides: which way is up on its axes says it.
struct PhoneHold {
    const char *axes, *words;
};
constexpr PhoneHold kUpright = {"XYZ", "upright"}, kLeftUp = {"YxZ", "sideways, its left side up"},
                    kRightUp = {"yXZ", "sideways, its right side up"}, kUpsideDown = {"xyZ", "upside down"};

const PhoneHold &HoldOf(const Eigen::Vector3d &up) {
    if (std::abs(up.x()) > std::abs(up.y())) return up.x() > 0 ? kRightUp : kLeftUp;
    return up.y() < 0 ? kUpsideDown : kUpright;
}

Eigen::Quaterniond SensorRotation(const Eigen::Vector4d &q) { return Eigen::Quaterniond(q[0], q[1], q[2], q[3]).normalized(); }

// Which of the world's axes is up, as the sensor's long edges point along it most of the time.
struct SensorWorld {
    bool is_z_up;
    Eigen::Vector3d up;  // on the sensor's axes
};
SensorWorld WorldOf(const std::vector<Eigen::Vector4d> &quaternions) {
    Eigen::Vector3d y = Eigen::Vector3d::Zero(), z = Eigen::Vector3d::Zero();
    for (const Eigen::Vector4d &quaternion : quaternions) {
        const Eigen::Matrix3d inverse = SensorRotation(quaternion).toRotationMatrix().transpose();
        y += inverse.col(1);
        z += inverse.col(2);
    }
    const bool is_z_up = z.head<2>().cwiseAbs().maxCoeff() > y.head<2>().cwiseAbs().maxCoeff();
    return {is_z_up, is_z_up ? z : y};
}

Eigen::Matrix3d AxesOfHold(const Eigen::Vector3d &up, const RateTableOptions &options, GyroLog *log) {
    if (options.axes) return *options.axes;
    const PhoneHold &hold = HoldOf(up);
    log->notes.push_back("the sensor's axes are taken as a phone's, x right, y up and z out of the screen, held " +
                         std::string(hold.words) + ": the picture's are " + hold.axes + " (--sensor-axes says them)");
    return *AxesOfLetters(hold.axes);
}

void AddQuaternions(const RateTableRows &rows, const Eigen::Matrix3d &axes, const SensorWorld &world, double seconds,
                    GyroLog *log) {
    const Eigen::Quaterniond sensor_of_picture(Eigen::Matrix3d(axes.transpose()));
    const Eigen::Quaterniond upright =
        world.is_z_up ? Eigen::Quaterniond(std::sqrt(0.5), -std::sqrt(0.5), 0, 0)
                      : Eigen::Quaterniond::Identity();
    for (std::size_t i = 0; i < rows.times.size(); ++i)
        log->orientations.push_back(
            {rows.times[i] * seconds, (upright * SensorRotation(rows.quaternions[i]) * sensor_of_picture).normalized()});
    log->is_upright = true;
    log->notes.push_back("the orientations' world is taken as right-handed with its " +
                         std::string(world.is_z_up ? "z" : "y") + " up");
}

void AddAngles(const RateTableRows &rows, AngleUnit unit, double seconds, GyroLog *log) {
    const double scale = unit == AngleUnit::kDegrees ? host::kRadiansPerDegree : 1;
    for (std::size_t i = 0; i < rows.times.size(); ++i) {
        const Eigen::Vector3d angles = rows.angles[i] * scale;
        const Eigen::Quaterniond rotation(Eigen::AngleAxisd(angles[0], Eigen::Vector3d::UnitY()) *
                                          Eigen::AngleAxisd(angles[1], Eigen::Vector3d::UnitX()) *
                                          Eigen::AngleAxisd(angles[2], Eigen::Vector3d::UnitZ()));
        log->orientations.push_back({rows.times[i] * seconds, rotation.normalized()});
    }
    log->is_upright = true;
    log->notes.emplace_back("yaw, pitch and roll are taken as turns about the picture's y, x and z, against the clock");
}

}  // namespace

GyroLog ReadRateTable(const std::string &file, const SourceText &source, const RateColumns &columns,
                      const RateTableOptions &options) {
    RateTableRows rows = ReadRows(source, columns);
    source.CheckEnd();
    if (rows.times.empty()) throw Failure(kExitInput, file + ": found no rows, expected samples of a sensor");
    GyroLog log;
    const double seconds = columns.time.seconds.value_or(SecondsOfSensorTimes(rows.times));
    if (columns.are_plain_names) log.notes.emplace_back("the columns x, y and z are taken as rates");
    Eigen::Matrix3d axes = options.axes.value_or(Eigen::Matrix3d::Identity());
    if (columns.quaternions) {
        const SensorWorld world = WorldOf(rows.quaternions);
        axes = AxesOfHold(world.up, options, &log);
        if (axes.determinant() < 0)
            throw Failure(kExitInput, "--sensor-axes: found axes that mirror the sensor, expected a turn of it");
        AddQuaternions(rows, axes, world, seconds, &log);
    } else if (columns.rates) {
        axes = AxesOfHold(MeanValue(rows.accelerations), options, &log);
    }
    if (columns.angles) AddAngles(rows, UnitOfAngles(rows, columns, options, &log), seconds, &log);
    if (columns.rates) {
        const bool is_degrees = UnitOfRates(rows, columns, options, &log) == AngleUnit::kDegrees;
        ScaleSamples(file, {seconds, is_degrees ? host::kRadiansPerDegree : 1, kMaxAngularRate}, axes, &rows.rates);
        log.rates = std::move(rows.rates);
    }
    const double gravity = MeanLength(rows.accelerations) < kMostGravity ? kStandardGravity : 1;
    ScaleSamples(file, {seconds, gravity, kMaxAcceleration}, axes, &rows.accelerations);
    log.accelerations = std::move(rows.accelerations);
    KeepRising(&log);
    return log;
}

}  // namespace tremolux
