#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

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
    if (std::all_of(corners.begin(), corners.end(), [](const host::Vector &corner) { return corner.z >= kNear; }))
        return corners;
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
          covered_(light_.size()),
          depth_(light_.size()),
          colours_(light_.size()),
          touched_(static_cast<std::size_t>(height), Touched{width, -1}) {}

    Picture Take() {
        std::vector<LocalQuad> quads;
        for (const Quad &quad : world_.quads) AddLocal(quad, &quads);
        for (const LensSample &sample : kLensPicture) {
            for (const LocalQuad &quad : quads) Draw(quad, sample);
            for (int y = 0; y < height_; ++y) TakeRow(y);
        }
        return Resolved();
    }

  private:
    struct Touched {
        int from, to;  // columns
    };
    struct LocalQuad {
        std::array<host::Vector, 4> corners;  // right, up, ahead
        Colour colour;
    };

    // Adds what was drawn into a row to the light, and clears it.
    void TakeRow(int y) {
        Touched &touched = touched_[static_cast<std::size_t>(y)];
        for (int x = touched.from; x <= touched.to; ++x) {
            const std::size_t at = Index(x, y);
            if (depth_[at] == 0) continue;
            depth_[at] = 0;
            ++covered_[at];
            light_[at].r += colours_[at].r;
            light_[at].g += colours_[at].g;
            light_[at].b += colours_[at].b;
        }
        touched = {width_, -1};
    }

    std::size_t Index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
    }

    void AddLocal(const Quad &quad, std::vector<LocalQuad> *quads) const {
        LocalQuad local{{}, {}};
        bool is_ahead = false;
        for (std::size_t i = 0; i < quad.corners.size(); ++i) {
            const host::Vector seen = quad.corners[i] - position_;
            local.corners[i] = {host::Dot(seen, axes_.v1), host::Dot(seen, axes_.v2), host::Dot(seen, axes_.v3)};
            is_ahead = is_ahead || local.corners[i].z >= kNear;
        }
        if (!is_ahead) return;
        local.colour = Hazed(quad.colour, host::Length(local.corners[0]));
        quads->push_back(local);
    }

    // A lens sample looks from beside the middle of the lens, turned so that what is in focus stays where it is.
    void Draw(const LocalQuad &quad, const LensSample &sample) {
        corners_.assign(quad.corners.begin(), quad.corners.end());
        for (host::Vector &corner : corners_) {
            const double shear = corner.z / focus_ - 1;
            corner.x += sample.lens_x * lens_ * shear;
            corner.y += sample.lens_y * lens_ * shear;
        }
        const Corners &seen = InFront(corners_);
        if (seen.size() < 3) return;
        points_.clear();
        for (const host::Vector &corner : seen) {
            points_.push_back({width_ / 2.0 + corner.x / corner.z * pixels_ - sample.pixel_x,
                               height_ / 2.0 - corner.y / corner.z * pixels_ - sample.pixel_y, 1 / corner.z});
        }
        Fill(quad.colour);
    }

    // Spans from edge to edge, row by row: a pixel is within where its sample is.
    void Fill(const Colour &colour) {
        double low_x = points_[0].x, high_x = low_x, low_y = points_[0].y, high_y = low_y;
        for (const host::Vector &point : points_) {
            low_x = std::min(low_x, point.x);
            high_x = std::max(high_x, point.x);
            low_y = std::min(low_y, point.y);
            high_y = std::max(high_y, point.y);
        }
        if (high_x < 0 || high_y < 0 || low_x > width_ - 1 || low_y > height_ - 1) return;
        const host::Vector slope = NearnessSlope();
        const int first = static_cast<int>(std::ceil(std::max(low_y, 0.0))),
                  last = static_cast<int>(std::floor(std::min(high_y, height_ - 1.0)));
        for (int y = first; y <= last; ++y) {
            const auto [left, right] = Span(y);
            const int from = static_cast<int>(std::ceil(std::max(left, 0.0))),
                      to = static_cast<int>(std::floor(std::min(right, width_ - 1.0)));
            if (from > to) continue;
            Touched &touched = touched_[static_cast<std::size_t>(y)];
            touched = {std::min(touched.from, from), std::max(touched.to, to)};
            const auto step = static_cast<float>(slope.x);
            const auto start = static_cast<float>(slope.z + slope.x * from + slope.y * y);
            const std::size_t at = Index(from, y);
            for (int i = 0; i <= to - from; ++i) {
                const float nearness = start + step * static_cast<float>(i);
                const std::size_t pixel = at + static_cast<std::size_t>(i);
                if (nearness <= depth_[pixel]) continue;
                depth_[pixel] = nearness;
                colours_[pixel] = colour;
            }
        }
    }

    // Nearness = z + x * column + y * row over the flat shape, from the first corner and the two that span most.
    host::Vector NearnessSlope() const {
        host::Vector slope{0, 0, points_[0].z};
        double most = 0;
        for (std::size_t i = 1; i + 1 < points_.size(); ++i) {
            const host::Vector a = points_[i] - points_[0], b = points_[i + 1] - points_[0];
            const double area = a.x * b.y - b.x * a.y;
            if (std::abs(area) <= most) continue;
            most = std::abs(area);
            slope.x = (a.z * b.y - b.z * a.y) / area;
            slope.y = (a.x * b.z - b.x * a.z) / area;
            slope.z = points_[0].z - slope.x * points_[0].x - slope.y * points_[0].y;
        }
        return slope;
    }

    // Where a row crosses the shape's edges.
    std::pair<double, double> Span(double y) const {
        double left = width_, right = -1;
        for (std::size_t i = 0; i < points_.size(); ++i) {
            const host::Vector &a = points_[i], &b = points_[i + 1 < points_.size() ? i + 1 : 0];
            if ((a.y <= y) == (b.y <= y)) continue;
            const double x = a.x + (b.x - a.x) * ((y - a.y) / (b.y - a.y));
            left = std::min(left, x);
            right = std::max(right, x);
        }
        return {left, right};
    }

    // Sky and ground where a pixel shows them: both are soft by themselves, so that a look at each pixel's middle is
    // enough.
    Colour Background(int x, int y) const {
        const double u = (x + 0.5 - width_ / 2.0) / pixels_, v = (height_ / 2.0 - y - 0.5) / pixels_;
        const host::Vector ray = axes_.v1 * u + axes_.v2 * v + axes_.v3;
        const double length = host::Length(ray), above = position_.y - world_.ground.y;
        if (ray.y >= 0 || above <= 0) {
            const double steep = std::max(ray.y, 0.0) / length;
            return Mixed(kHorizon, kSky, static_cast<float>(std::min(1.0, 2.5 * steep)));
        }
        const double away = above / -ray.y;
        const host::Vector hit = position_ + ray * away - world_.ground;
        // What the place on the ground changes by, from a pixel to the next; and what the lens spreads a pixel over.
        const auto per_pixel = [&](const host::Vector &axis) {
            const double share = axis.y / -ray.y;
            return host::Vector{axis.x + ray.x * share, 0, axis.z + ray.z * share} * (away / pixels_);
        };
        const host::Vector across = per_pixel(axes_.v1), down = per_pixel(axes_.v2);
        const double pixels = 1 + 2 * lens_ * pixels_ * std::abs(1 / focus_ - 1 / away);
        const auto along = [&](double to_x, double to_z) {
            const double footprint =
                pixels * (std::abs(across.x * to_x + across.z * to_z) + std::abs(down.x * to_x + down.z * to_z));
            return LineShare(hit.x * to_x + hit.z * to_z, footprint);
        };
        const double lines = std::max(along(grid_cos_, grid_sin_), along(-grid_sin_, grid_cos_));
        return Hazed(Mixed(kGround, kGroundLine, static_cast<float>(lines)), away * length);
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

    Picture Resolved() const {
        Picture picture(width_, height_);
        constexpr int kSamples = static_cast<int>(kLensPicture.size());
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                const std::size_t at = Index(x, y);
                Colour sum = light_[at];
                if (covered_[at] < kSamples) {
                    const Colour behind = Background(x, y);
                    const auto open = static_cast<float>(kSamples - covered_[at]);
                    sum = {sum.r + open * behind.r, sum.g + open * behind.g, sum.b + open * behind.b};
                }
                picture.Set(x, y, {sum.r / kSamples, sum.g / kSamples, sum.b / kSamples});
            }
        }
        return picture;
    }

    const World &world_;
    const host::Matrix axes_;
    const host::Vector position_;
    const int width_, height_;
    const double pixels_;        // of a tangent of 1
    const double focus_, lens_;  // distance and the lens's radius, scene units
    const double grid_cos_ = std::cos(world_.heading), grid_sin_ = std::sin(world_.heading);
    Corners corners_;                   // of the shape that is drawn, in the camera's frame
    std::vector<host::Vector> points_;  // the same in the picture: x, y, nearness
    std::vector<Colour> light_;
    std::vector<std::uint8_t> covered_;  // by how many of the lens samples
    std::vector<float> depth_;           // nearness of what is drawn, 0 for the background
    std::vector<Colour> colours_;
    std::vector<Touched> touched_;  // of each row, by what is drawn
};

}  // namespace

Picture Look(const World &world, const CameraSample &camera, double aperture_width, int width, int height) {
    return View(world, camera, aperture_width, width, height).Take();
}

}  // namespace tremolux
