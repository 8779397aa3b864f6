#include "host/files/scenefile.h"

#include <unordered_map>

#include "host/animation/track.h"
#include "host/files/hyperfile.h"
#include "host/files/safe_write.h"
#include "host/scene/messages.h"
#include "host/scene/tag.h"
#include "host/value/descid.h"
#include "host/value/text.h"

namespace host {

namespace {

constexpr std::int32_t kSceneIdent = 0x74787363;  // "txsc"
constexpr std::int32_t kFormat = 1;
constexpr int kDeepestHierarchy = 256;
// The kinds of settings that a document may hold: general, modeling, document, animation, tools.
constexpr std::int32_t kSettingsTypes[] = {0, 1, 2, 7, 8};

// Where in a transform the file has its vectors.
std::vector<Vector *> VectorsOf(Transform *t) {
    return {&t->position, &t->rotation, &t->scale, &t->frozen_position, &t->frozen_rotation, &t->frozen_scale};
}

// Nodes in the order in which they stand in the file: an object, its tags, its children.
class NodeNumbers : public HyperFile::LinkNumbers {
  public:
    void Add(Node *node) {
        numbers_[node] = static_cast<std::int32_t>(nodes_.size());
        nodes_.push_back(node);
    }
    void AddObjects(Object *first) {
        for (Object *object = first; object != nullptr; object = object->NextObject()) {
            Add(object);
            for (Node *tag = object->FirstTag(); tag != nullptr; tag = tag->Next()) Add(tag);
            AddObjects(object->FirstChild());
        }
    }
    std::int32_t NumberOf(HostAtom *node) override {
        const auto place = numbers_.find(static_cast<Node *>(node));
        return place == numbers_.end() ? -1 : place->second;
    }
    void Connect(HostLink *link, std::int32_t number) override { waiting_.emplace_back(link, number); }
    // When all nodes are there.
    void ConnectWaiting() {
        for (const auto &[link, number] : waiting_)
            if (Node *node = At(number)) SetLink(link, node);
    }
    Node *At(std::int32_t number) const {
        return number >= 0 && static_cast<std::size_t>(number) < nodes_.size()
                   ? nodes_[static_cast<std::size_t>(number)]
                   : nullptr;
    }

  private:
    std::vector<Node *> nodes_;
    std::unordered_map<Node *, std::int32_t> numbers_;
    std::vector<std::pair<HostLink *, std::int32_t>> waiting_;
};

// ---- Writing

class SceneWriter {
  public:
    explicit SceneWriter(HyperFile *file) : file_(*file) {}

    bool Write(Document *document, NodeNumbers *numbers) {
        bool done = file_.WriteWhole(kFormat) && WriteNode(document);
        for (std::int32_t type : kSettingsTypes) done = done && file_.WriteContainer(document->Settings(type));
        View *view = document->ActiveView();
        Object *camera = view != nullptr ? view->SceneCamera(document) : nullptr;
        return done && file_.WriteWhole(camera != nullptr ? numbers->NumberOf(camera) : -1) &&
               WriteObjects(document->FirstObject(), 0);
    }

  private:
    bool WriteNode(Node *node) {
        bool done = file_.WriteText(node->Name()) && file_.WriteWhole(node->Bits()) &&
                    file_.WriteContainer(node->Data()) &&
                    file_.WriteWhole(static_cast<std::int32_t>(node->Tracks().size()));
        for (const Track *track : node->Tracks()) done = done && WriteTrack(*track);
        return done;
    }

    bool WriteTrack(const Track &track) {
        const TableDescID &id = track.Id();
        bool done = file_.WriteWhole(id.depth);
        for (std::int32_t i = 0; i < id.depth; ++i)
            done = done && file_.WriteWhole(id.level[i].id) && file_.WriteWhole(id.level[i].dtype) &&
                   file_.WriteWhole(id.level[i].creator);
        const Curve &curve = *track.GetCurve();
        done = done && file_.WriteWhole(track.before) && file_.WriteWhole(track.after) &&
               file_.WriteWhole(curve.KeyCount());
        for (std::int32_t i = 0; i < curve.KeyCount(); ++i) done = done && WriteKey(*curve.KeyAt(i));
        return done;
    }

    bool WriteKey(const Key &key) {
        const Time time = key.GetTime();
        return file_.WriteTime(time) && file_.WriteReal(key.GetValue()) && file_.WriteWhole(key.GetInterpolation()) &&
               file_.WriteTime(key.left.time) && file_.WriteReal(key.left.value) && file_.WriteTime(key.right.time) &&
               file_.WriteReal(key.right.value) && file_.WriteData(key.data);
    }

    bool WriteObjects(const Object *first, int depth) {
        if (depth > kDeepestHierarchy) return false;
        std::int32_t count = 0;
        for (const Object *object = first; object != nullptr; object = object->NextObject()) ++count;
        bool done = file_.WriteWhole(count);
        for (const Object *object = first; object != nullptr; object = object->NextObject())
            done = done && WriteObject(const_cast<Object *>(object), depth);
        return done;
    }

    bool WriteObject(Object *object, int depth) {
        Transform transform = object->GetTransform();
        bool done = file_.WriteWhole(object->Type()) && WriteNode(object) && file_.WriteWhole(transform.order);
        for (const Vector *vector : VectorsOf(&transform)) done = done && file_.WriteVector(*vector);
        std::int32_t tags = 0;
        for (Node *tag = object->FirstTag(); tag != nullptr; tag = tag->Next()) ++tags;
        done = done && file_.WriteWhole(tags);
        for (Node *tag = object->FirstTag(); tag != nullptr; tag = tag->Next())
            done = done && file_.WriteWhole(tag->Type()) && WriteNode(tag);
        return done && WriteObjects(object->FirstChild(), depth + 1);
    }

    HyperFile &file_;
};

// ---- Reading

class SceneReader {
  public:
    SceneReader(HyperFile *file, NodeNumbers *numbers) : file_(*file), numbers_(*numbers) {}

    bool Read(Document *document) {
        std::int32_t format = 0, camera = -1;
        numbers_.Add(document);
        if (!file_.ReadWhole(&format) || format != kFormat || !ReadNode(document)) return false;
        for (std::int32_t type : kSettingsTypes) {
            Container settings;
            if (!file_.ReadContainer(&settings)) return false;
            MoveEntries(&settings, &document->Settings(type));
        }
        if (!file_.ReadWhole(&camera) || !ReadObjects(document, nullptr, 0)) return false;
        numbers_.ConnectWaiting();
        Node *scene_camera = numbers_.At(camera);
        if (scene_camera != nullptr && scene_camera->Classification() == kTypeObject &&
            document->ActiveView() != nullptr)
            document->ActiveView()->SetSceneCamera(static_cast<Object *>(scene_camera));
        return true;
    }

  private:
    // Over what is there already. Moved: a copy would leave the links that wait to be connected behind.
    static void MoveEntries(Container *from, Container *to) {
        for (std::int32_t i = 0; i < from->Count(); ++i) to->Set(from->IdAt(i), std::move(*from->LiveAt(i)));
    }

    bool ReadNode(Node *node) {
        std::string name;
        std::int32_t bits = 0, tracks = 0;
        Container data;
        if (!file_.ReadText(&name) || !file_.ReadWhole(&bits) || !file_.ReadContainer(&data) ||
            !file_.ReadWhole(&tracks))
            return false;
        node->SetName(name);
        node->SetBits(bits);
        MoveEntries(&data, &node->Data());
        for (std::int32_t i = 0; i < tracks; ++i)
            if (!ReadTrack(node)) return false;
        return true;
    }

    bool ReadTrack(Node *node) {
        TableDescID id{};
        if (!file_.ReadWhole(&id.depth) || id.depth < 1 || id.depth > TABLE_DESC_LEVELS) return false;
        for (std::int32_t i = 0; i < id.depth; ++i)
            if (!file_.ReadWhole(&id.level[i].id) || !file_.ReadWhole(&id.level[i].dtype) ||
                !file_.ReadWhole(&id.level[i].creator))
                return false;
        std::int32_t before = 0, after = 0, keys = 0;
        if (!file_.ReadWhole(&before) || !file_.ReadWhole(&after) || !file_.ReadWhole(&keys)) return false;
        std::unique_ptr<Track> track = Track::Create(node, id);
        if (track != nullptr) {
            track->before = before;
            track->after = after;
        }
        for (std::int32_t i = 0; i < keys; ++i) {
            auto key = std::make_unique<Key>();
            if (!ReadKey(key.get())) return false;
            // The parameter of a tag whose module is missing may not be known as one that moves.
            if (track != nullptr && track->GetCurve()->InsertKey(key.get())) static_cast<void>(key.release());
        }
        if (track != nullptr && node->InsertTrack(track.get())) static_cast<void>(track.release());
        return true;
    }

    bool ReadKey(Key *key) {
        Time time{};
        double value = 0;
        std::int32_t interpolation = 0;
        Data data;
        if (!file_.ReadTime(&time) || !file_.ReadReal(&value) || !file_.ReadWhole(&interpolation) ||
            !file_.ReadTime(&key->left.time) || !file_.ReadReal(&key->left.value) ||
            !file_.ReadTime(&key->right.time) || !file_.ReadReal(&key->right.value) || !file_.ReadData(&data))
            return false;
        key->SetTime(time);
        key->SetValue(value);
        key->SetInterpolation(interpolation);
        key->data = std::move(data);
        return true;
    }

    bool ReadObjects(Document *document, Object *parent, int depth) {
        std::int32_t count = 0;
        if (depth > kDeepestHierarchy || !file_.ReadWhole(&count)) return false;
        Object *last = nullptr;
        for (std::int32_t i = 0; i < count; ++i) {
            std::int32_t type = 0;
            if (!file_.ReadWhole(&type)) return false;
            std::unique_ptr<Object> made = Object::Create(type);
            if (made == nullptr) return false;
            Object *object = made.release();
            document->InsertObject(object, parent, last);
            last = object;
            if (!ReadObject(document, object, depth)) return false;
        }
        return true;
    }

    bool ReadObject(Document *document, Object *object, int depth) {
        numbers_.Add(object);
        Transform transform;
        if (!ReadNode(object) || !file_.ReadWhole(&transform.order)) return false;
        for (Vector *vector : VectorsOf(&transform))
            if (!file_.ReadVector(vector)) return false;
        object->SetTransform(transform);
        std::int32_t tags = 0;
        if (!file_.ReadWhole(&tags)) return false;
        Tag *last = nullptr;
        for (std::int32_t i = 0; i < tags; ++i) {
            std::int32_t type = 0;
            if (!file_.ReadWhole(&type)) return false;
            std::unique_ptr<Tag> made = Tag::Create(type);
            if (made == nullptr) made = Tag::CreateMissing(type);
            Tag *tag = made.release();
            object->InsertTag(tag, last);
            last = tag;
            numbers_.Add(tag);
            if (!ReadNode(tag)) return false;
        }
        return ReadObjects(document, object, depth + 1);
    }

    HyperFile &file_;
    NodeNumbers &numbers_;
};

void TellImported(Document *document) {
    TableDocumentImported imported{};
    imported.document = document;
    Broadcast(document, kMessageDocumentImported, &imported);
    BroadcastDocumentInfo(document, kInfoLoad);
}

}  // namespace

bool SaveDocument(Document *document, const std::filesystem::path &file, std::string *error) {
    if (document == nullptr) {
        *error = PathText(file) + ": there is no document to save";
        return false;
    }
    BroadcastDocumentInfo(document, kInfoSaveBefore);
    NodeNumbers numbers;
    numbers.Add(document);
    numbers.AddObjects(document->FirstObject());
    HyperFile scene;
    scene.OpenForWriting(kSceneIdent);
    scene.links = &numbers;
    if (!SceneWriter(&scene).Write(document, &numbers)) {
        *error = PathText(file) + ": the scene is nested too deep, or holds data that cannot be kept in a file";
        return false;
    }
    // A file of the user's own naming: a link is written where it leads.
    if (!WriteFileSafely(FileBehindLinks(file).value_or(file), scene.Bytes(), error)) return false;
    BroadcastDocumentInfo(document, kInfoSaveAfter);
    return true;
}

std::unique_ptr<Document> LoadDocument(const std::filesystem::path &file, std::string *error) {
    std::string bytes;
    if (!ReadFile(file, &bytes, error)) return nullptr;
    NodeNumbers numbers;
    HyperFile scene;
    scene.links = &numbers;
    auto document = std::make_unique<Document>();
    if (!scene.OpenForReading(kSceneIdent, std::move(bytes))) {
        *error = PathText(file) + ": is no scene file, expected one that was saved here";
        return nullptr;
    }
    if (!SceneReader(&scene, &numbers).Read(document.get())) {
        *error = PathText(file) + ": is cut off or damaged, expected a whole scene";
        return nullptr;
    }
    TellImported(document.get());
    return document;
}

}  // namespace host
