#include <algorithm>
#include <array>
#include <cmath>

#include "host/scene/angles.h"
#include "tremolux/pictures/picture.h"

namespace tremolux {
namespace {

constexpr double kStop = 2.8;  // f-number
constexpr double kSceneUnitsPerMillimetre = 0.1;
constexpr double kNear = 5, kNearestFocus = 10;  // scene units
constexpr double kHaze = 1 / 60000.0;            // of the light that is lost a scene unit
constexpr double kLine = 4, kMetre = 100;        // scene units: of the ground's lines
constexpr Colour kSky = {0.45F, 0.62F, 0.80F}, kHorizon = {0.83F, 0.87F, 0.90F}, kGround = {0.46F, 0.49F, 0.44F},
                 kGroundLine = {0.72F, 0.74F, 0.70F};

// Where the light of one picture is gathered: places on the lens, within a circle of radius 1, and within a pixel.
struct LensSample {
    double lens_x, lens_y, pixel_x, pixel_y;
};
constexpr std::array<LensSample, 8> kLensPicture = {{{0.35, 0.0, 0.31, 0.19},
                                                     {-0.25, 0.25, 0.81, 0.06},
                                                     {0.0, -0.35, 0.06, 0.44},
                                                     {0.66, 0.61, 0.56, 0.31},
                                                     {-0.87, -0.05, 0.19, 0.69},
                                                     {0.38, -0.82, 0.94, 0.56},
                                                     {-0.45, 0.78, 0.44, 0.94},
                                                     {0.85, -0.25, 0.69, 0.81}}};

Colour Mixed(const Colour &a, const Colour &b, float share) {
    return {a.r + (b.r - a.r) * share, a.g + (b.g - a.g) * share, a.b + (b.b - a.b) * share};
}

Colour Hazed(const Colour &colour, double distance) {
    return Mixed(colour, kHorizon, static_cast<float>(1 - std::exp(-distance * kHaze)));
}

// A corner in the camera's frame: right, up, ahead.
using Corners = std::vector<host::Vector>;

// What lies nearer than the near plane is cut off.
Corners InFront(const Corners &corners) {
    Corners kept;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const host::Vector &a = corners[i], &b = corners[(i + 1) % corners.size()];
        if (a.z >= kNear) kept.push_back(a);
        if ((a.z >= kNear) != (b.z >= kNear)) kept.push_back(a + (b - a) * ((kNear - a.z) / (b.z - a.z)));
    }
    return kept;
}

class View {
  public:
    View(const World &world, const CameraSample &camera, double aperture_width, int width, int height)
        : world_(world),
          axes_(host::HpbToMatrix(camera.angles)),
          position_(camera.position),
          width_(width),
          height_(height),
          pixels_(camera.focal_length / aperture_width * width),
          focus_(std::max(camera.focus_distance, kNearestFocus)),
          lens_(camera.focal_length * kSceneUnitsPerMillimetre / (2 * kStop)),
          light_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
          depth_(light_.size()),
          colours_(light_.size()) {}

    Picture Take() {
        for (const LensSample &sample : kLensPicture) {
            sample_ = sample;
            DrawBackground();
            for (const Quad &quad : world_.quads) Draw(quad);
            for (std::size_t i = 0; i < light_.size(); ++i) {
                light_[i].r += colours_[i].r;
                light_[i].g += colours_[i].g;
                light_[i].b += colours_[i].b;
            }
        }
        Picture picture(width_, height_);
        constexpr float kShare = 1.0F / kLensPicture.size();
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                const Colour &sum = light_[Index(x, y)];
                picture.Set(x, y, {sum.r * kShare, sum.g * kShare, sum.b * kShare});
            }
        }
        return picture;
    }

  private:
    std::size_t Index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
    }

    // A lens sample looks from beside the middle of the lens, turned so that what is in focus stays where it is.
    void DrawBackground() {
        const double from_right = sample_.lens_x * lens_, from_up = sample_.lens_y * lens_;
        const host::Vector eye = position_ + axes_.v1 * from_right + axes_.v2 * from_up;
        const double grid_cos = std::cos(world_.heading), grid_sin = std::sin(world_.heading);
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                const double u = (x + sample_.pixel_x - width_ / 2.0) / pixels_ - from_right / focus_;
                const double v = (height_ / 2.0 - y - sample_.pixel_y) / pixels_ - from_up / focus_;
                const host::Vector ray = axes_.v1 * u + axes_.v2 * v + axes_.v3;
                const std::size_t at = Index(x, y);
                depth_[at] = 0;
                const double above = eye.y - world_.ground.y;
                if (ray.y >= 0 || above <= 0) {
                    const double steep = std::max(ray.y, 0.0) / host::Length(ray);
                    colours_[at] = Mixed(kHorizon, kSky, static_cast<float>(std::min(1.0, 2.5 * steep)));
                    continue;
                }
                const double away = above / -ray.y;
                const host::Vector hit = eye + ray * away - world_.ground;
                const double footprint = away / pixels_ * host::Length(ray);
                const double lines = std::max(LineShare(hit.x * grid_cos + hit.z * grid_sin, footprint),
                                              LineShare(hit.z * grid_cos - hit.x * grid_sin, footprint));
                colours_[at] = Hazed(Mixed(kGround, kGroundLine, static_cast<float>(lines)), away * host::Length(ray));
            }
        }
    }

    // How much of a pixel that covers so much of the ground shows a line; far off only the mean is left.
    static double LineShare(double place, double footprint) {
        const double mean = kLine / kMetre;
        if (footprint > kMetre / 2) return mean;
        const double off = std::abs(place - kMetre * std::round(place / kMetre));
        const double sharp =
            std::clamp((kLine / 2 + footprint / 2 - off) / footprint, 0.0, std::min(1.0, kLine / footprint));
        return sharp + (mean - sharp) * std::min(1.0, footprint / (kMetre / 2));
    }

    void Draw(const Quad &quad) {
        Corners corners;
        for (const host::Vector &corner : quad.corners) {
            const host::Vector seen = corner - position_;
            host::Vector local = {host::Dot(seen, axes_.v1), host::Dot(seen, axes_.v2), host::Dot(seen, axes_.v3)};
            const double shear = local.z / focus_ - 1;
            local.x += sample_.lens_x * lens_ * shear;
            local.y += sample_.lens_y * lens_ * shear;
            corners.push_back(local);
        }
        corners = InFront(corners);
        if (corners.size() < 3) return;
        const Colour colour = Hazed(quad.colour, host::Length(corners.front()));
        for (std::size_t i = 1; i + 1 < corners.size(); ++i) Fill({corners[0], corners[i], corners[i + 1]}, colour);
    }

    // Of a projected triangle the nearness (1 / depth) changes evenly over the picture.
    void Fill(const std::array<host::Vector, 3> &triangle, const Colour &colour) {
        std::array<host::Vector, 3> p;
        for (std::size_t i = 0; i < 3; ++i) {
            const host::Vector &corner = triangle[i];
            p[i] = {width_ / 2.0 + corner.x / corner.z * pixels_, height_ / 2.0 - corner.y / corner.z * pixels_,
                    1 / corner.z};
        }
        const double area = (p[1].x - p[0].x) * (p[2].y - p[0].y) - (p[2].x - p[0].x) * (p[1].y - p[0].y);
        if (std::abs(area) < 1e-12) return;
        const auto [low_x, high_x] = std::minmax({p[0].x, p[1].x, p[2].x});
        const auto [low_y, high_y] = std::minmax({p[0].y, p[1].y, p[2].y});
        if (high_x < 0 || high_y < 0 || low_x > width_ || low_y > height_) return;
        const int first_y = static_cast<int>(std::max(low_y - 1, 0.0)),
                  last_y = static_cast<int>(std::min(high_y, height_ - 1.0));
        const int first_x = static_cast<int>(std::max(low_x - 1, 0.0)),
                  last_x = static_cast<int>(std::min(high_x, width_ - 1.0));
        for (int y = first_y; y <= last_y; ++y) {
            const double sy = y + sample_.pixel_y;
            for (int x = first_x; x <= last_x; ++x) {
                const double sx = x + sample_.pixel_x;
                const double a = ((p[1].x - sx) * (p[2].y - sy) - (p[2].x - sx) * (p[1].y - sy)) / area;
                const double b = ((p[2].x - sx) * (p[0].y - sy) - (p[0].x - sx) * (p[2].y - sy)) / area;
                const double c = 1 - a - b;
                if (a < 0 || b < 0 || c < 0) continue;
                const float nearness = static_cast<float>(a * p[0].z + b * p[1].z + c * p[2].z);
                const std::size_t at = Index(x, y);
                if (nearness <= depth_[at]) continue;
                depth_[at] = nearness;
                colours_[at] = colour;
            }
        }
    }

    const World &world_;
    const host::Matrix axes_;
    const host::Vector position_;
    const int width_, height_;
    const double pixels_;        // of a tangent of 1
    const double focus_, lens_;  // distance and the lens's radius, scene units
    LensSample sample_ = kLensPicture[0];
    std::vector<Colour> light_;
    std::vector<float> depth_;  // nearness of what is drawn, 0 for the background
    std::vector<Colour> colours_;
};

}  // namespace

Picture Look(const World &world, const CameraSample &camera, double aperture_width, int width, int height) {
    return View(world, camera, aperture_width, width, height).Take();
}

}  // namespace tremolux
