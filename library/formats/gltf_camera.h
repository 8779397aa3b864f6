// The cameras of a glTF file, and the motion of one of them.
#pragma once

#include <Eigen/Geometry>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "library/formats/gltf_document.h"
#include "library/formats/gltf_track.h"

namespace tremolux {

struct GltfCamera {
    std::vector<std::size_t> nodes;  // from the root down to the one that has the camera
    std::size_t camera;
    std::string path;  // names from the root down; empty where neither node nor camera has one
};

// The camera of this name or path, or the only one; refuses a file that has none or several, and lists them.
GltfCamera FindGltfCamera(const GltfDocument &document, const std::string &wanted);

class GltfMotion {
  public:
    // What is passed over is added to `notes`.
    GltfMotion(const GltfDocument &document, const GltfCamera &camera, std::vector<std::string> *notes);

    // Times of all keys that move the camera or its lens; empty where none does.
    std::vector<double> Times() const;
    // World from camera, in metres; keys within `reach` seconds are taken as they are.
    Eigen::Matrix4d WorldAt(double seconds, double reach) const;
    // The vertical angle of view, or nothing where it is not animated.
    std::optional<double> AngleAt(double seconds, double reach) const;

  private:
    struct Node {
        std::optional<Eigen::Matrix4d> matrix;  // instead of the rest
        Eigen::Vector3d translation{0, 0, 0}, scale{1, 1, 1};
        Eigen::Vector4d rotation{0, 0, 0, 1};
        std::optional<GltfTrack> translations, rotations, scales;
    };
    static Node ReadNode(const JsonPlace &place);
    static Eigen::Matrix4d LocalAt(const Node &node, double seconds, double reach);
    void ReadChannel(const GltfDocument &document, const GltfCamera &camera, const JsonPlace &animation,
                     const JsonPlace &channel);
    void Animate(const GltfDocument &document, Node *node, const std::string &path, const JsonPlace &sampler,
                 const std::string &target);
    void Note(const std::string &line);

    std::vector<Node> nodes_;
    std::map<std::size_t, std::size_t> places_;  // in nodes_, by the node's number
    std::size_t track_count_ = 0;
    std::optional<GltfTrack> angles_;
    std::vector<std::string> *notes_;
};

}  // namespace tremolux
