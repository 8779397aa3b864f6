// A node: everything that has a type, a place in a list or tree, a container, a name and messages.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/value/container.h"
#include "host/value/link.h"
#include "host/watch/live_atoms.h"
#include "platform/table.h"

// Every handle of the table to a node is one of these.
struct HostAtom {
    HostAtom() { host::EnterAtom(this); }
    virtual ~HostAtom() { host::LeaveAtom(this); }
    HostAtom(const HostAtom &) = delete;
    HostAtom &operator=(const HostAtom &) = delete;
};

namespace host {

class Document;
class Track;
struct NodeList;

// Type numbers and the base classes that IsInstanceOf knows.
enum NodeType : std::int32_t {
    kTypeBaseList = 110050,
    kTypeDocument = 110059,
    kTypeObject = 5155,
    kTypeTag = 5694,
    kTypeTrack = 5350,
    kTypeCurve = 5351,
    kTypeKey = 5352,
    kTypeCamera = 5103,
    kTypeNull = 5140
};

enum DirtyFlag : std::int32_t { kDirtyMatrix = 2, kDirtyData = 4, kDirtySelect = 8, kDirtyDescription = 64 };
enum CopyFlag : std::int32_t {
    kCopyNoHierarchy = 4,
    kCopyNoAnimation = 8,
    kCopyNoBits = 16,
    kCopyNoBranches = 128,
    kCopyDocument = 1024
};
constexpr std::int32_t kBitActive = 2;

// Ownership: a node in a list or tree belongs to it; a free node belongs to whoever made or removed it.
class Node : public HostAtom {
  public:
    ~Node() override;  // removes itself first; destroys children, tags and tracks
    Node(const Node &) = delete;
    Node &operator=(const Node &) = delete;

    std::int32_t Type() const { return type_; }
    virtual std::int32_t Classification() const = 0;  // kTypeObject, kTypeTag, ...
    virtual bool IsInstanceOf(std::int32_t type) const;
    // A free copy with everything it owns, its links turned to copies made in the same translation. null when the
    // copy could not be made. `translation` may be null: then links inside the copied group follow, others stay.
    Node *Clone(std::int32_t flags, HostAliasTrans *translation) const;
    // Makes `destination`, a node of the same type that lies outside of this one, equal to it. false: refused, nothing
    // was changed, or a part of it could not be copied.
    bool CopyInto(Node *destination, std::int32_t flags, HostAliasTrans *translation) const;
    // Frees a node wherever it stands. What belongs to another node for ever (a curve) stays; what an undo step still
    // needs is only removed and freed together with that step.
    static void Discard(Node *node);

    // ---- The list or tree that it stands in
    Node *Next() const { return next_; }
    Node *Previous() const { return previous_; }
    Node *Up() const { return up_; }  // among its own kind: a tag or a top object has none
    Node *Down() const { return first_child_; }
    Node *DownLast() const { return last_child_; }
    void InsertAfter(Node *sibling);
    void InsertUnder(Node *parent);  // as its first child; refused inside itself
    void InsertUnderLast(Node *parent);
    void Remove();
    bool IsBelow(const Node *ancestor) const;
    virtual Document *GetDocument() const;  // null when free
    // What a tag, track, curve or key belongs to; null otherwise.
    virtual Node *Main() const { return nullptr; }

    // ---- Data
    Container &Data() { return data_; }
    const Container &Data() const { return data_; }
    virtual std::string Name() const { return name_; }
    virtual void SetName(const std::string &name) { name_ = name; }
    std::int32_t Bits() const { return bits_; }
    void SetBits(std::int32_t bits) { bits_ = bits; }
    std::uint32_t Dirty(std::int32_t flags) const;
    void SetDirty(std::int32_t flags);
    const std::shared_ptr<NodeAnchor> &Anchor() const;  // made when first asked for: most keys never need one
    virtual ModuleObject *Plugin() const { return nullptr; }

    // The parameter's value: plug-in, then virtual parameters of the built-in type, then the container, then the
    // description's default. false: there is none.
    bool GetParameter(const TableDescID &id, host::Data *out, std::int32_t flags = 0) const;
    bool SetParameter(const TableDescID &id, const host::Data &data, std::int32_t flags = 0);
    virtual bool SendMessage(std::int32_t type, void *data);  // true when nobody objects
    // A value from a track: no limits, no plug-in, no message about a set parameter.
    bool WriteAnimated(const TableDescID &id, const host::Data &data);
    bool WriteAnimated(const TableDescID &id, double value);

    // ---- Tracks: owned, in the order of the description
    const std::vector<Track *> &Tracks() const { return tracks_; }
    Track *FindTrack(const TableDescID &id) const;
    bool InsertTrack(Track *track);  // takes it over; replaces a track of the same parameter
    void RemoveTrack(Track *track);  // the caller owns it

  protected:
    explicit Node(std::int32_t type);
    // Parameters that live outside the container (transforms, name, document times). false: not one of them.
    virtual bool GetVirtualParameter(const TableDescID &id, host::Data *out) const;
    virtual bool SetVirtualParameter(const TableDescID &id, const host::Data &data);
    virtual bool IsVirtualParameter(const TableDescID &id) const;  // true: never written to the container
    virtual Node *CreateSameKind() const = 0;  // a fresh free node of the same type; null when refused
    virtual bool CopyOwnState(Node *copy, std::int32_t flags, HostAliasTrans *translation) const;
    // The plug-in's say about a parameter; true: it has handled it.
    virtual bool GetPluginParameter(const TableDescID &id, host::Data *out, std::int32_t flags) const;
    virtual bool SetPluginParameter(const TableDescID &id, const host::Data &data, std::int32_t flags);
    virtual bool CanHoldChildren() const { return false; }
    virtual bool RemoveFromOwner() { return false; }  // of nodes that stand in no list or tree; true: it was removed
    virtual bool OwnedForGood() const { return false; }
    virtual void DestroyBranches() {}  // before a copy replaces them
    // First in every destructor: from here on nobody finds the node any more.
    void Detach();
    void DestroyChildren();
    void DestroyTracks();
    Node *CloneTree(std::int32_t flags, HostAliasTrans *translation) const;
    // In a list that its owner keeps itself (tracks, keys).
    void LinkBetween(Node *previous, Node *next);
    void Unlink();
    NodeList *List() const { return list_; }

  private:
    friend class Document;
    friend class Object;
    friend class UndoStack;
    friend class NodeState;
    friend struct NodeList;
    friend class Curve;
    friend class UndoKeep;
    friend class UndoPlace;
    friend class UndoBranches;
    bool CopyState(Node *copy, std::int32_t flags, HostAliasTrans *translation) const;
    std::int32_t type_;
    Node *next_ = nullptr, *previous_ = nullptr, *up_ = nullptr, *first_child_ = nullptr, *last_child_ = nullptr;
    // The list that a top-level node stands in (the document's objects, an object's tags); null for a free node.
    NodeList *list_ = nullptr;
    Container data_;
    std::string name_;
    std::int32_t bits_ = 0;
    std::uint32_t dirty_[8] = {};
    mutable std::shared_ptr<NodeAnchor> anchor_;
    std::vector<Track *> tracks_;
    // Undo entries that may put the node back, and whether it is theirs to free once it stands nowhere.
    std::int32_t undo_keepers_ = 0;
    bool left_to_undo_ = false;
};

// A list of top-level nodes and what it belongs to. Owns its nodes.
struct NodeList {
    Node *owner = nullptr;
    Node *first = nullptr, *last = nullptr;
    ~NodeList();
    void Clear();  // deletes what stands in it
    void InsertFirst(Node *node);
    void InsertLast(Node *node);
    void InsertAfter(Node *node, Node *predecessor);
};

}  // namespace host
