#include "library/formats/usd/cameras.h"

namespace tremolux {
namespace {

constexpr std::size_t kListed = 12;
constexpr std::size_t kMaxCameras = 4000;

void Collect(const std::vector<UsdPrim> &prims, UsdCamera *above, std::vector<UsdCamera> *cameras) {
    const std::size_t length = above->path.size();
    for (const UsdPrim &prim : prims) {
        if (prim.is_class || !prim.is_active || cameras->size() == kMaxCameras) continue;
        above->chain.push_back(&prim);
        above->path += "/" + prim.name;
        if (prim.type == "Camera") cameras->push_back(*above);
        Collect(prim.children, above, cameras);
        above->chain.pop_back();
        above->path.resize(length);
    }
}

// Safe inside a one-line message.
std::string Shown(const std::string &path) {
    const std::string quoted = Quoted(path);
    return quoted.substr(1, quoted.size() - 2);
}

std::string List(const std::vector<UsdCamera> &cameras) {
    std::string list;
    for (std::size_t i = 0; i < cameras.size() && i < kListed; ++i)
        list += (i == 0 ? "" : ", ") + Shown(cameras[i].path);
    return list + (cameras.size() > kListed ? " and " + std::to_string(cameras.size() - kListed) + " more" : "");
}

}  // namespace

UsdCamera FindCamera(const SourceText &source, const UsdLayer &layer, const std::string &wanted) {
    std::vector<UsdCamera> cameras, named;
    UsdCamera above;
    Collect(layer.prims, &above, &cameras);
    if (cameras.empty()) {
        std::string elsewhere;
        for (const std::string &name : layer.unfollowed) elsewhere += (elsewhere.empty() ? "" : ", ") + name;
        if (elsewhere.empty()) source.Refuse(1, 1, "no camera", "a Camera");
        source.Refuse(1, 1, "no camera, but " + elsewhere + ", which are not followed",
                      "a Camera in the file itself: `usdcat --flatten -o FLAT.usda FILE` brings it in");
    }
    for (const UsdCamera &camera : cameras) {
        const bool is_meant = wanted.empty() || camera.path == wanted || camera.Prim().name == wanted;
        if (is_meant) named.push_back(camera);
    }
    if (named.empty()) {
        source.RefuseAt(cameras[0].Prim().place, "no camera " + Quoted(wanted),
                        "--camera with " + std::string(cameras.size() > 1 ? "one of " : "") + List(cameras));
    }
    if (named.size() > 1) {
        source.RefuseAt(named[1].Prim().place, std::to_string(named.size()) + " cameras",
                        "--camera with one of " + List(named));
    }
    return named[0];
}

}  // namespace tremolux
