#include "library/formats/usd/placement.h"

#include <algorithm>
#include <cmath>

#include "library/formats/numbers.h"
#include "library/formats/right_handed.h"

namespace tremolux {
namespace {

constexpr double kMaxEvaluations = 5e7;  // of ops: what a small file may cost
constexpr double kSameLength = 1e-4;     // of axes, and cosines: half precision is no stretching
constexpr double kFlat = 1e-9;           // volume of axes of length 1 that span no space
constexpr double kWholeFrame = 1e-6;

double Volume(const host::Matrix &camera) { return host::Dot(host::Cross(camera.v1, camera.v2), camera.v3); }

// Axes of length 1 and at right angles that look the same way, and up as far as that goes; right as a hand has it.
host::Matrix Upright(const host::Matrix &camera) {
    const host::Vector back = host::Normalized(camera.v3);
    const host::Vector up = host::Normalized(camera.v2 - back * host::Dot(camera.v2, back));
    return {camera.off, host::Cross(up, back), up, back};
}

bool IsStretched(const host::Matrix &camera) {
    const double x = host::Length(camera.v1), y = host::Length(camera.v2), z = host::Length(camera.v3);
    const double longest = std::max({x, y, z}), shortest = std::min({x, y, z});
    if (longest - shortest > kSameLength * longest) return true;
    const double skew = std::max({std::abs(host::Dot(camera.v1, camera.v2)), std::abs(host::Dot(camera.v2, camera.v3)),
                                  std::abs(host::Dot(camera.v3, camera.v1))});
    return skew > kSameLength * longest * longest;
}

}  // namespace

UsdPlacement::UsdPlacement(const SourceText &source, const UsdCamera &camera, const UsdStage &stage)
    : source_(source), camera_(camera), stage_(stage) {
    for (auto prim = camera.chain.rbegin(); prim != camera.chain.rend(); ++prim) {
        transforms_.push_back(TransformOf(source, **prim));
        if (transforms_.back().resets) break;
    }
    for (const UsdTransform &transform : transforms_)
        still_.push_back(transform.IsAnimated() ? host::kIdentity : MatrixAt(source, transform, 0));
}

// Of all that moves the camera or changes its lens.
std::optional<UsdPlacement::Range> UsdPlacement::SampledRange() const {
    std::optional<Range> range;
    const auto add = [&range, this](const UsdAttribute &attribute) {
        if (attribute.samples.empty()) return;
        const double first = attribute.samples.front().time_code / stage_.codes_per_frame;
        const double last = attribute.samples.back().time_code / stage_.codes_per_frame;
        range = range ? Range{std::min(range->first, first), std::max(range->last, last)} : Range{first, last};
    };
    for (const UsdTransform &transform : transforms_) {
        for (const UsdOp &op : transform.ops) {
            const auto attribute = transform.prim->attributes.find(op.attribute);
            if (attribute != transform.prim->attributes.end()) add(attribute->second);
        }
    }
    for (const auto &[name, attribute] : camera_.Prim().attributes) {
        if (name.compare(0, 7, "xformOp") != 0) add(attribute);
    }
    return range;
}

// The stage's range, else that of the samples; of a camera that stands still what is asked for.
UsdPlacement::Range UsdPlacement::FrameRange(const FormatOptions &options, std::vector<std::string> *notes) const {
    const std::optional<Range> sampled = SampledRange();
    if (!sampled && options.frames)
        return {static_cast<double>(options.frames->first), static_cast<double>(options.frames->second)};
    const auto frame = [this](double code) { return code / stage_.codes_per_frame; };
    const double start = stage_.start ? frame(*stage_.start) : sampled ? sampled->first : 0;
    const double end = stage_.end ? frame(*stage_.end) : sampled ? sampled->last : start;
    Range range = {std::ceil(start - kWholeFrame), std::floor(end + kWholeFrame)};
    if (sampled && range.last <= range.first && sampled->last >= sampled->first + 1) {
        range = {std::ceil(sampled->first - kWholeFrame), std::floor(sampled->last + kWholeFrame)};
        notes->push_back("the stage has no range of its own: the frames are those of the camera's samples, " +
                         FormatNumber(range.first) + " to " + FormatNumber(range.last));
    } else if (range.last < range.first) {
        range.first = range.last = std::round(start);
    }
    if (sampled && (sampled->first < range.first - 1 || sampled->last > range.last + 1)) {
        notes->push_back("samples from " + FormatNumber(sampled->first) + " to " + FormatNumber(sampled->last) +
                         " go beyond the stage's frames " + FormatNumber(range.first) + " to " +
                         FormatNumber(range.last) + ", which are taken");
    }
    return range;
}

void UsdPlacement::CheckLength(const Range &range) const {
    const double frames = range.last - range.first + 1;
    if (!(range.first >= -kMaxFrameNumber && range.last <= kMaxFrameNumber && frames >= 1 &&
          frames <= static_cast<double>(kMaxFrames))) {
        source_.RefuseAt(camera_.Prim().place, "frames " + FormatNumber(range.first) + " to " + FormatNumber(range.last),
                         "1 to " + std::to_string(kMaxFrames) + " frames between -" + std::to_string(kMaxFrameNumber) +
                             " and " + std::to_string(kMaxFrameNumber));
    }
    std::size_t moving = 0;
    for (const UsdTransform &transform : transforms_) moving += transform.IsAnimated() ? transform.ops.size() : 0;
    if (static_cast<double>(moving) * frames > kMaxEvaluations) {
        source_.RefuseAt(camera_.Prim().place,
                         std::to_string(moving) + " ops that move on " + FormatNumber(frames) + " frames",
                         "at most " + FormatNumber(kMaxEvaluations) + " of both together");
    }
}

host::Matrix UsdPlacement::WorldAt(double time_code) const {
    host::Matrix world = host::kIdentity;
    for (std::size_t i = 0; i < transforms_.size(); ++i)
        world = (transforms_[i].IsAnimated() ? MatrixAt(source_, transforms_[i], time_code) : still_[i]) * world;
    return world;
}

host::Matrix UsdPlacement::CameraAt(double frame) {
    host::Matrix camera = WorldAt(stage_.CodeOf(frame));
    camera.off = {stage_.UnitsToScene(camera.off.x), stage_.UnitsToScene(camera.off.y),
                  stage_.UnitsToScene(camera.off.z)};
    const host::Matrix upright = Upright(camera);
    const bool placed = std::abs(camera.off.x) <= kMaxNumber && std::abs(camera.off.y) <= kMaxNumber &&
                        std::abs(camera.off.z) <= kMaxNumber && host::IsFinite(camera) && host::IsFinite(upright);
    if (!placed || std::abs(Volume(host::WithNormalizedAxes(camera))) < kFlat) {
        source_.RefuseAt(camera_.Prim().place, "another matrix at frame " + FormatNumber(frame),
                         "a camera with a direction, an up and a position");
    }
    is_mirrored_ = is_mirrored_ || Volume(camera) < 0;
    is_stretched_ = is_stretched_ || IsStretched(camera);
    return stage_.is_z_up ? YUpOf(upright) : upright;
}

void UsdPlacement::SetFrames(const FormatOptions &options, CameraMove *move) {
    const Range range = FrameRange(options, &move->notes);
    CheckLength(range);
    move->first_frame = static_cast<std::int64_t>(range.first);
    for (auto frame = move->first_frame; frame <= static_cast<std::int64_t>(range.last); ++frame)
        SetFromRightHanded(CameraAt(static_cast<double>(frame)), &move->samples.emplace_back());
    MakeContinuous(&move->samples);
    if (is_mirrored_) move->notes.emplace_back("the stage mirrors the camera: its picture is not mirrored here");
    if (is_stretched_)
        move->notes.emplace_back("the stage stretches the camera: where it stands and looks is kept, its shape is not");
}

}  // namespace tremolux
