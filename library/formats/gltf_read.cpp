#include <algorithm>
#include <cmath>

#include "host/value/radians.h"
#include "library/formats/gltf.h"
#include "library/formats/gltf_camera.h"
#include "library/formats/gltf_document.h"
#include "library/formats/gltf_extras.h"
#include "library/formats/gltf_rate.h"
#include "library/formats/lens.h"
#include "library/formats/numbers.h"
#include "library/formats/right_handed.h"
#include "library/formats/source_text.h"
#include "library/moves/scene_units.h"

namespace tremolux {
namespace {

constexpr double kMillimetresPerMetre = 1000;
// A key so close to a frame, in frames, is that frame's.
constexpr double kKeyReach = 1e-3;
// How far numbers of 32 bits lie from those that they were made from, as a share.
constexpr double kFloatStep = 1e-6;

// Columns as the camera's axes, each of length 1 and square to the others: it looks where its back points from, and its
// up lies in the plane of the file's.
host::Matrix Orthonormal(const Eigen::Matrix4d &world, const JsonPlace &node) {
    const Eigen::Vector3d up = world.block<3, 1>(0, 1), back = world.block<3, 1>(0, 2), off = world.block<3, 1>(0, 3);
    const Eigen::Vector3d z = back.stableNormalized(), x = up.stableNormalized().cross(z);
    if (!world.allFinite() || off.cwiseAbs().maxCoeff() * kSceneUnitsPerMetre > kMaxNumber)
        node.Refuse("a place beyond every limit", "one up to " + FormatNumber(kMaxNumber) + " centimetres away");
    if (!(x.norm() > kFloatStep)) node.Refuse("axes without length or direction", "a camera that looks somewhere");
    const Eigen::Vector3d right = x.normalized(), y = z.cross(right);
    const auto vector = [](const Eigen::Vector3d &v) { return host::Vector{v.x(), v.y(), v.z()}; };
    return {vector(off) * kSceneUnitsPerMetre, vector(right), vector(y), vector(z)};
}

struct Frames {
    std::int64_t first;
    std::size_t count;
    double seconds;  // of the first
};

class Reader {
  public:
    Reader(const std::string &file, std::string_view bytes, const FormatOptions &options)
        : options_(options),
          document_(file, bytes, options.folder),
          camera_(FindGltfCamera(document_, options.camera)),
          node_(document_.All("nodes").Element(camera_.nodes.back())),
          lens_(document_.All("cameras").Element(camera_.camera)),
          motion_(document_, camera_, &move_.notes) {}

    CameraMove Move() {
        const JsonPlace extras = lens_.Member("extras");
        const std::optional<CameraMove> own = extras ? MoveOfGltfExtras(extras.Value()) : std::nullopt;
        times_ = motion_.Times();
        ReadProjection(own);
        if (own && IsMotionOf(*own)) return *own;
        SetRate(own);
        SetFrames();
        if (own)
            move_.notes.emplace_back("its extras say another motion than its keys (another program may have changed "
                                     "the file): the keys are taken; focus and what else changes by frame are passed over");
        MakeContinuous(&move_.samples);
        return std::move(move_);
    }

  private:
    double SecondsPerFrame() const { return 1 / move_.rate.PerSecond(); }
    double Reach(double seconds) const { return kKeyReach * SecondsPerFrame() + RoundingOfTime(seconds); }
    // Height of the film back that makes the vertical angle of view.
    double Height() const {
        return move_.aperture_height.value_or(move_.aperture_width * options_.height / options_.width);
    }

    void ReadProjection(const std::optional<CameraMove> &own) {
        move_.aperture_width = own ? own->aperture_width : options_.aperture_width;
        CameraTraits &traits = move_.traits;
        traits.path = own ? own->traits.path : camera_.path;
        const std::string type = lens_.Member("type").Text();
        traits.is_orthographic = type == "orthographic";
        if (!traits.is_orthographic && type != "perspective")
            lens_.Member("type").Refuse("\"perspective\" or \"orthographic\"");
        const JsonPlace projection = lens_.Member(type.c_str());
        if (traits.is_orthographic)
            ReadView(projection);
        else
            ReadPerspective(projection, own);
        const double max = kMaxNumber / kSceneUnitsPerMetre;
        if (own) {
            for (std::size_t i = 0; i < traits.channels.size(); ++i) {
                if (own->traits.channels[i].size() == 1) traits.channels[i] = own->traits.channels[i];
            }
            return;
        }
        const auto clip = [&](const char *name, TraitChannel channel) {
            if (const JsonPlace place = projection.Member(name))
                traits.channels[channel] = {place.Number(0, max) * kSceneUnitsPerMetre};
        };
        clip("znear", kNearClip);
        clip("zfar", kFarClip);
    }

    void ReadPerspective(const JsonPlace &perspective, const std::optional<CameraMove> &own) {
        angle_ = perspective.Member("yfov");
        angle_->Number(0, host::kPi);
        const double picture = static_cast<double>(options_.width) / options_.height;
        const double aspect = perspective.Member("aspectRatio").Number(0, kMaxNumber, picture);
        const double height = aspect > 0 ? move_.aperture_width / aspect : 0;
        if (own && own->aperture_height)
            move_.aperture_height = own->aperture_height;
        else if (own || std::abs(aspect - picture) > kFloatStep * picture)
            move_.aperture_height = height;
        if (height < kMinAperture || height > kMaxAperture)
            perspective.Member("aspectRatio")
                .Refuse("an aspect ratio that makes a film back of " + FormatNumber(kMinAperture) + " to " +
                        FormatNumber(kMaxAperture) + " mm height of one " + FormatNumber(move_.aperture_width) +
                        " mm wide");
        if (!own)
            move_.notes.push_back("a .gltf file says no film back and no focus: the film back is taken as " +
                                  FormatNumber(move_.aperture_width) +
                                  " mm wide, and the focal length from that and the angle of view; --aperture says "
                                  "another width");
    }

    // The film back of an orthographic camera is as large as what it sees.
    void ReadView(const JsonPlace &orthographic) {
        const double width = 2 * std::abs(orthographic.Member("xmag").Number(-kMaxNumber, kMaxNumber)),
                     height = 2 * std::abs(orthographic.Member("ymag").Number(-kMaxNumber, kMaxNumber));
        const std::string size = FormatNumber(width) + " x " + FormatNumber(height) + " m";
        const auto fits = [](double view) {
            const ApertureLimits limits = LimitsOfAperture(true);
            return view * kMillimetresPerMetre >= limits.least && view * kMillimetresPerMetre <= limits.most;
        };
        if (fits(width) && fits(height)) {
            move_.aperture_width = width * kMillimetresPerMetre;
            move_.aperture_height = height * kMillimetresPerMetre;
            move_.notes.push_back("an orthographic camera that sees " + size + ": its film back is that large");
        } else {
            move_.notes.push_back("an orthographic camera that sees " + size +
                                  ", more or less than a film back can have: that size is passed over");
        }
    }

    double FocalLengthAt(double seconds) const {
        if (!angle_) return CameraSample().focal_length;
        const double angle = motion_.AngleAt(seconds, Reach(seconds)).value_or(angle_->Value().get<double>());
        const double focal_length = angle > 0 && angle < host::kPi ? FocalLengthOf(Height(), angle) : 0;
        if (!(focal_length >= kMinFocalLength && focal_length <= kMaxFocalLength))
            angle_->Refuse(FormatNumber(angle) + " radians at " + FormatNumber(seconds) + " seconds",
                          "an angle of view that a lens of " + FormatNumber(kMinFocalLength) + " to " +
                              FormatNumber(kMaxFocalLength) + " mm has");
        return focal_length;
    }

    CameraSample SampleAt(double seconds) const {
        CameraSample sample;
        SetFromRightHanded(Orthonormal(motion_.WorldAt(seconds, Reach(seconds)), node_), &sample);
        sample.focal_length = FocalLengthAt(seconds);
        return sample;
    }

    // Whether the keys of the file are those of `own`, as 32-bit floats.
    bool IsMotionOf(const CameraMove &own) {
        if (times_.empty() || own.traits.is_orthographic != move_.traits.is_orthographic) return false;
        move_.rate = own.rate;
        const std::int64_t zero = GltfFrameAtTimeZero(own);
        const auto seconds = [&](std::int64_t frame) {
            return static_cast<double>(frame - zero) * own.rate.denominator / own.rate.numerator;
        };
        const auto [first, last] = std::minmax_element(times_.begin(), times_.end());
        if (std::abs(*first - seconds(own.first_frame)) > SecondsPerFrame() / 2 ||
            std::abs(*last - seconds(own.LastFrame())) > SecondsPerFrame() / 2)
            return false;
        for (std::size_t i = 0; i < own.samples.size(); ++i) {
            const CameraSample &said = own.samples[i];
            const double time = seconds(own.first_frame + static_cast<std::int64_t>(i));
            if (!IsSame(said, SampleAt(time))) return false;
        }
        return true;
    }

    bool IsSame(const CameraSample &said, const CameraSample &keyed) const {
        const auto near = [](double a, double b, double scale) { return std::abs(a - b) <= kFloatStep * scale; };
        const host::Vector &p = said.position, &q = keyed.position;
        const Quaternion a = RightHandedQuaternion(said.angles);
        const Quaternion b = InHemisphereOf(a, RightHandedQuaternion(keyed.angles));
        // Far from 0 turns of many revolutions lose digits, too.
        const double turns = 1 + std::abs(said.angles.x) + std::abs(said.angles.y) + std::abs(said.angles.z);
        return near(p.x, q.x, 1e-3 + std::abs(p.x)) && near(p.y, q.y, 1e-3 + std::abs(p.y)) &&
               near(p.z, q.z, 1e-3 + std::abs(p.z)) && near(a.w, b.w, turns) && near(a.x, b.x, turns) &&
               near(a.y, b.y, turns) && near(a.z, b.z, turns) &&
               (!angle_ || near(said.focal_length, keyed.focal_length, said.focal_length));
    }

    void SetRate(const std::optional<CameraMove> &own) {
        if (own) {
            move_.rate = own->rate;
        } else if (options_.rate) {
            move_.rate = *options_.rate;
        } else if (const std::optional<FrameRate> found = FrameRateOfTimes(times_); !times_.empty() && found) {
            move_.rate = *found;
            move_.notes.push_back("it says no frame rate: " + FrameRateText(move_.rate) +
                                  ", at which all its keys are whole frames, is taken; --fps says another");
        } else if (!times_.empty()) {
            move_.notes.push_back("it says no frame rate, and its keys are whole frames of none that is known: " +
                                  FrameRateText(move_.rate) + " is taken; --fps says another");
        }
    }

    void SetFrames() {
        if (times_.empty()) {
            move_.notes.emplace_back("nothing moves this camera: one frame");
            move_.samples.push_back(SampleAt(0));
            return;
        }
        const auto [first, last] = std::minmax_element(times_.begin(), times_.end());
        const auto frame = [&](double seconds) {
            const double number = std::round(seconds * move_.rate.PerSecond());
            if (std::abs(number) > static_cast<double>(kMaxFrameNumber))
                node_.Refuse("a key at " + FormatNumber(seconds) + " seconds",
                             "frames up to " + std::to_string(kMaxFrameNumber));
            return static_cast<std::int64_t>(number);
        };
        move_.first_frame = frame(*first);
        const std::int64_t end = frame(*last);
        if (end - move_.first_frame >= static_cast<std::int64_t>(kMaxFrames))
            node_.Refuse(std::to_string(end - move_.first_frame + 1) + " frames",
                         "at most " + std::to_string(kMaxFrames));
        for (std::int64_t number = move_.first_frame; number <= end; ++number)
            move_.samples.push_back(
                SampleAt(static_cast<double>(number) * move_.rate.denominator / move_.rate.numerator));
    }

    const FormatOptions &options_;
    CameraMove move_;
    GltfDocument document_;
    GltfCamera camera_;
    JsonPlace node_, lens_;
    std::optional<JsonPlace> angle_;  // of view, vertical, where the camera has a perspective
    GltfMotion motion_;
    std::vector<double> times_;
};

}  // namespace

CameraMove ReadGltf(const std::string &file, std::string_view bytes, const FormatOptions &options) {
    return Reader(file, bytes, options).Move();
}

}  // namespace tremolux
