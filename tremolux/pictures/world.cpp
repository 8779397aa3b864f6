#include "tremolux/pictures/world.h"

#include <algorithm>
#include <cmath>

namespace tremolux {
namespace {

constexpr double kEyeHeight = 160, kLowest = 30;  // scene units
constexpr double kTurn = 6.28318530717958647693;

constexpr Colour kPost = {0.85F, 0.30F, 0.20F}, kWood = {0.66F, 0.52F, 0.36F}, kFigure = {0.20F, 0.36F, 0.55F},
                 kSkin = {0.86F, 0.68F, 0.55F}, kHouse = {0.62F, 0.65F, 0.70F};

// Numbers that look random and are always the same: the fractional part of multiples of the golden ratio.
double Scatter(int i) {
    const double x = i * 0.61803398874989485;
    return x - std::floor(x);
}

Colour Shaded(const Colour &colour, float light) { return {colour.r * light, colour.g * light, colour.b * light}; }

class Builder {
  public:
    explicit Builder(World *world) : world_(*world) {}

    // `right` and `ahead` of the camera's first place, the box's middle; it stands `bottom` above the ground.
    void Box(double right, double ahead, double bottom, double width, double height, double depth,
             const Colour &colour) {
        const double x0 = right - width / 2, x1 = right + width / 2, z0 = ahead - depth / 2, z1 = ahead + depth / 2,
                     y0 = bottom, y1 = bottom + height;
        // The light comes from the left, from above and from behind the camera.
        Add({{{x0, y0, z0}, {x1, y0, z0}, {x1, y1, z0}, {x0, y1, z0}}}, Shaded(colour, 0.85F));
        Add({{{x0, y0, z1}, {x1, y0, z1}, {x1, y1, z1}, {x0, y1, z1}}}, Shaded(colour, 0.55F));
        Add({{{x0, y0, z0}, {x0, y0, z1}, {x0, y1, z1}, {x0, y1, z0}}}, Shaded(colour, 0.95F));
        Add({{{x1, y0, z0}, {x1, y0, z1}, {x1, y1, z1}, {x1, y1, z0}}}, Shaded(colour, 0.6F));
        Add({{{x0, y1, z0}, {x1, y1, z0}, {x1, y1, z1}, {x0, y1, z1}}}, Shaded(colour, 1.0F));
    }

    void Figure(double right, double ahead) {
        Box(right, ahead, 0, 42, 150, 26, kFigure);
        Box(right, ahead, 150, 20, 26, 22, kSkin);
    }

  private:
    void Add(std::array<host::Vector, 4> corners, const Colour &colour) {
        const double c = std::cos(world_.heading), s = std::sin(world_.heading);
        for (host::Vector &corner : corners) {
            corner = world_.ground + host::Vector{corner.x * c - corner.z * s, corner.y, corner.x * s + corner.z * c};
        }
        world_.quads.push_back({corners, colour});
    }

    World &world_;
};

double GroundHeight(const CameraMove &input) {
    double lowest = input.samples.front().position.y;
    for (const CameraSample &sample : input.samples) lowest = std::min(lowest, sample.position.y);
    return lowest >= kLowest ? 0 : lowest - kEyeHeight;
}

}  // namespace

World MakeWorld(const CameraMove &input) {
    const CameraSample &first = input.samples.front();
    World world;
    world.ground = {first.position.x, GroundHeight(input), first.position.z};
    world.heading = first.angles.x;
    Builder builder(&world);
    for (int i = 0; i < 24; ++i) builder.Box(-260, 250 + 300.0 * i, 0, 12, 110, 12, kPost);
    for (int i = 1; i < 6; ++i) builder.Box(-260, 250 - 300.0 * i, 0, 12, 110, 12, kPost);
    builder.Figure(70, 520);
    builder.Figure(230, 900);
    builder.Figure(-60, 1400);
    builder.Box(200, 480, 0, 80, 60, 60, kWood);
    builder.Box(210, 480, 60, 45, 45, 45, kWood);
    builder.Box(420, 1100, 0, 180, 140, 420, Shaded(kFigure, 1.5F));
    builder.Box(-130, 800, 0, 60, 75, 60, kWood);
    // All around, so that a camera that turns has something to see.
    for (int i = 0; i < 40; ++i) {
        const double around = kTurn * Scatter(3 * i), distance = 1600 + 5000 * Scatter(5 * i + 1);
        const double right = distance * std::sin(around), ahead = distance * std::cos(around);
        if (i % 4 == 0) {
            builder.Figure(right, ahead);
        } else {
            const double size = 60 + 160 * Scatter(7 * i + 2);
            builder.Box(right, ahead, 0, size, size * 0.8, size, Shaded(kWood, i % 2 == 0 ? 0.9F : 1.1F));
        }
    }
    for (int i = 0; i < 72; ++i) {
        const double around = kTurn * i / 72, distance = 15000 + 25000 * Scatter(2 * i + 1);
        const double width = 900 + 1500 * Scatter(11 * i), height = 900 + 5200 * Scatter(13 * i) * Scatter(17 * i + 3);
        builder.Box(distance * std::sin(around), distance * std::cos(around), 0, width, height, width, kHouse);
    }
    return world;
}

}  // namespace tremolux
