#include "library/formats/gltf_camera.h"

#include <algorithm>

#include "library/formats/gltf_names.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "library/moves/camera_move.h"

namespace tremolux {
namespace {

constexpr std::size_t kMaxNodeDepth = 256;  // of nodes within nodes
constexpr std::size_t kMaxGltfCameras = 1000, kMaxPathBytes = 4096;
constexpr std::size_t kMaxListed = 20;  // cameras in a refusal
constexpr std::size_t kMaxNotes = 20;

// By node; a node without a parent has its own number.
std::vector<std::size_t> ParentsOf(const JsonPlace &nodes) {
    std::vector<std::size_t> parents(nodes.Size());
    for (std::size_t i = 0; i < parents.size(); ++i) parents[i] = i;
    for (std::size_t i = 0; i < parents.size(); ++i) {
        const JsonPlace children = nodes.Element(i).Member("children");
        for (std::size_t k = 0; k < children.Size(); ++k) {
            const JsonPlace child = children.Element(k);
            nodes.ElementNamedBy(child);
            std::size_t &parent = parents[child.Value().get<std::size_t>()];
            if (parent != child.Value().get<std::size_t>() || parent == i)
                child.Refuse("a node that has no other parent and is not its own");
            parent = i;
        }
    }
    return parents;
}

// A name as one step of a path.
std::string Step(const JsonPlace &named, const std::string &fallback) {
    std::string name = named.Member("name").Text();
    std::replace(name.begin(), name.end(), '/', '_');
    return name.empty() ? fallback : name;
}

std::vector<std::size_t> ChainTo(const JsonPlace &nodes, const std::vector<std::size_t> &parents, std::size_t leaf) {
    std::vector<std::size_t> chain = {leaf};
    while (parents[chain.back()] != chain.back()) {
        chain.push_back(parents[chain.back()]);
        if (chain.size() > kMaxNodeDepth)
            nodes.Element(leaf).Refuse("a node that is its own ancestor, or more than " + std::to_string(kMaxNodeDepth) + " deep",
                                       "a tree of nodes");
    }
    std::reverse(chain.begin(), chain.end());
    return chain;
}

std::string PathOf(const JsonPlace &nodes, const std::vector<std::size_t> &chain, const JsonPlace &camera) {
    const std::string own = Step(nodes.Element(chain.back()), Step(camera, ""));
    if (own.empty()) return {};
    std::string path;
    for (std::size_t i = 0; i + 1 < chain.size() && path.size() <= kMaxPathBytes; ++i)
        path += "/" + Step(nodes.Element(chain[i]), "Node" + std::to_string(chain[i]));
    path += "/" + own;
    if (path.size() > kMaxPathBytes)
        nodes.Element(chain.back()).Refuse("a path of more than " + std::to_string(kMaxPathBytes) + " bytes", "names");
    return path;
}

std::string Listed(const std::vector<GltfCamera> &cameras) {
    std::string list;
    for (std::size_t i = 0; i < std::min(cameras.size(), kMaxListed); ++i) {
        const GltfCamera &camera = cameras[i];
        list += (i > 0 ? ", " : "") +
                (camera.path.empty() ? "node " + std::to_string(camera.nodes.back()) : Quoted(camera.path));
    }
    return list + (cameras.size() > kMaxListed ? ", ..." : "");
}

template <std::size_t count>
std::optional<Eigen::Matrix<double, count, 1>> VectorOf(const JsonPlace &place) {
    if (!place) return std::nullopt;
    if (place.Size() != count) place.Refuse(std::to_string(count) + " numbers");
    Eigen::Matrix<double, count, 1> vector;
    for (std::size_t i = 0; i < count; ++i)
        vector[static_cast<Eigen::Index>(i)] = place.Element(i).Number(-kMaxNumber, kMaxNumber);
    return vector;
}

}  // namespace

GltfCamera FindGltfCamera(const GltfDocument &document, const std::string &wanted) {
    const JsonPlace nodes = document.All("nodes"), cameras = document.All("cameras");
    const std::vector<std::size_t> parents = ParentsOf(nodes);
    std::vector<GltfCamera> all, named;
    for (std::size_t i = 0; i < parents.size(); ++i) {
        const JsonPlace index = nodes.Element(i).Member("camera");
        if (!index) continue;
        if (all.size() == kMaxGltfCameras) index.Refuse("more than " + std::to_string(kMaxGltfCameras) + " cameras", "fewer");
        const JsonPlace camera = cameras.ElementNamedBy(index);
        GltfCamera found{ChainTo(nodes, parents, i), index.Value().get<std::size_t>(), ""};
        found.path = PathOf(nodes, found.nodes, camera);
        if (wanted == found.path || wanted == nodes.Element(i).Member("name").Text() ||
            wanted == camera.Member("name").Text())
            named.push_back(found);
        all.push_back(std::move(found));
    }
    if (all.empty()) nodes.Refuse("no node with a camera", "one");
    const std::vector<GltfCamera> &fitting = wanted.empty() ? all : named;
    if (fitting.empty()) nodes.Refuse("no camera " + Quoted(wanted), "one of " + Listed(all));
    if (fitting.size() > 1)
        nodes.Refuse(std::to_string(fitting.size()) + " cameras", "--camera with one of " + Listed(fitting));
    return fitting.front();
}

GltfMotion::Node GltfMotion::ReadNode(const JsonPlace &place) {
    Node node;
    if (const auto matrix = VectorOf<16>(place.Member("matrix")))
        node.matrix = Eigen::Map<const Eigen::Matrix4d>(matrix->data());  // column by column
    node.translation = VectorOf<3>(place.Member("translation")).value_or(node.translation);
    node.rotation = VectorOf<4>(place.Member("rotation")).value_or(node.rotation);
    node.scale = VectorOf<3>(place.Member("scale")).value_or(node.scale);
    return node;
}

GltfMotion::GltfMotion(const GltfDocument &document, const GltfCamera &camera, std::vector<std::string> *notes)
    : notes_(notes) {
    for (const std::size_t node : camera.nodes) {
        places_.emplace(node, nodes_.size());
        nodes_.push_back(ReadNode(document.All("nodes").Element(node)));
    }
    const JsonPlace animations = document.All("animations");
    std::size_t moving = 0, before = 0;
    for (std::size_t i = 0; i < animations.Size(); ++i) {
        const JsonPlace channels = animations.Element(i).Member("channels");
        for (std::size_t k = 0; k < channels.Size(); ++k)
            ReadChannel(document, camera, animations.Element(i), channels.Element(k));
        if (track_count_ > before) ++moving;
        before = track_count_;
    }
    if (moving > 1) Note(std::to_string(moving) + " animations move this camera: all of them are taken at once");
}

void GltfMotion::Note(const std::string &line) {
    if (notes_->size() < kMaxNotes) notes_->push_back(line);
}

void GltfMotion::ReadChannel(const GltfDocument &document, const GltfCamera &camera, const JsonPlace &animation,
                             const JsonPlace &channel) {
    const JsonPlace target = channel.Member("target");
    const auto sampler = [&] { return animation.Member("samplers").ElementNamedBy(channel.Member("sampler")); };
    std::optional<std::int64_t> node;
    std::string path = target.Member("path").Text();
    if (path == "pointer") {
        const std::string pointer = target.Member("extensions").Member(kAnimationPointer).Member("pointer").Text();
        const std::string lens = "/cameras/" + std::to_string(camera.camera) + "/";
        if (pointer == lens + "perspective/yfov") {
            if (angles_) return Note("a second animation of " + Quoted(pointer) + " is passed over");
            angles_.emplace(document, sampler(), 1, false);
            ++track_count_;
            return;
        }
        if (pointer.compare(0, lens.size(), lens) == 0)
            return Note("the animation of " + Quoted(pointer) + " is passed over");
        constexpr std::string_view kNodes = "/nodes/";
        const std::size_t slash = pointer.rfind('/');
        if (pointer.compare(0, kNodes.size(), kNodes) != 0 || slash < kNodes.size()) return;
        node = ParseWhole(std::string_view(pointer).substr(kNodes.size(), slash - kNodes.size()));
        path = pointer.substr(slash + 1);
    } else if (const JsonPlace index = target.Member("node")) {
        document.All("nodes").ElementNamedBy(index);
        node = index.Value().get<std::int64_t>();
    }
    const auto place = node && *node >= 0 ? places_.find(static_cast<std::size_t>(*node)) : places_.end();
    if (place != places_.end())
        Animate(document, &nodes_[place->second], path, sampler(), "node " + std::to_string(place->first));
}

void GltfMotion::Animate(const GltfDocument &document, Node *node, const std::string &path, const JsonPlace &sampler,
                         const std::string &target) {
    std::optional<GltfTrack> *track = path == "translation" ? &node->translations
                                      : path == "rotation"  ? &node->rotations
                                      : path == "scale"     ? &node->scales
                                                            : nullptr;
    if (track == nullptr) return;
    const std::string what = "animation of the " + path + " of " + target;
    if (node->matrix) return Note("the " + what + ", which has a matrix, is passed over");
    if (*track) return Note("a second " + what + " is passed over");
    track->emplace(document, sampler, path == "rotation" ? 4 : 3, path == "rotation");
    ++track_count_;
}

std::vector<double> GltfMotion::Times() const {
    std::vector<double> times;
    const auto add = [&](const std::optional<GltfTrack> &track) {
        if (track) times.insert(times.end(), track->Times().begin(), track->Times().end());
    };
    add(angles_);
    for (const Node &node : nodes_) {
        add(node.translations);
        add(node.rotations);
        add(node.scales);
    }
    return times;
}

Eigen::Matrix4d GltfMotion::LocalAt(const Node &node, double seconds, double reach) {
    if (node.matrix) return *node.matrix;
    const auto at = [&](const std::optional<GltfTrack> &track, const Eigen::Vector3d &still) -> Eigen::Vector3d {
        if (!track) return still;
        const std::array<double, 4> value = track->At(seconds, reach);
        return {value[0], value[1], value[2]};
    };
    Eigen::Vector4d turn = node.rotation;
    if (node.rotations) turn = Eigen::Map<const Eigen::Vector4d>(node.rotations->At(seconds, reach).data());
    Eigen::Affine3d local = Eigen::Affine3d::Identity();
    local.translate(at(node.translations, node.translation));
    // A quaternion without length stands for no turn.
    if (turn.norm() > 0) local.rotate(Eigen::Quaterniond(turn.normalized()));
    local.scale(at(node.scales, node.scale));
    return local.matrix();
}

Eigen::Matrix4d GltfMotion::WorldAt(double seconds, double reach) const {
    Eigen::Matrix4d world = Eigen::Matrix4d::Identity();
    for (const Node &node : nodes_) world *= LocalAt(node, seconds, reach);
    return world;
}

std::optional<double> GltfMotion::AngleAt(double seconds, double reach) const {
    if (!angles_) return std::nullopt;
    return angles_->At(seconds, reach)[0];
}

}  // namespace tremolux
