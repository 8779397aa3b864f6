// Animation of one parameter: a track with a curve of keys.
#pragma once

#include <memory>
#include <vector>

#include "host/scene/node.h"

namespace host {

class Curve;

enum Interpolation : std::int32_t { kInterpolationSpline = 1, kInterpolationLinear = 2, kInterpolationStep = 3 };
enum Loop : std::int32_t {
    kLoopOff = 0,
    kLoopConstant = 1,
    kLoopContinue = 2,
    kLoopRepeat = 3,
    kLoopOffsetRepeat = 4,
    kLoopOscillate = 5
};

class Key : public Node {
  public:
    Key();
    ~Key() override;
    std::int32_t Classification() const override { return kTypeKey; }
    Node *Main() const override;
    Curve *GetCurve() const { return curve_; }
    Document *GetDocument() const override;

    Time GetTime() const { return time_; }
    void SetTime(const Time &time);  // re-sorts the curve it is in
    double GetValue() const { return value_; }
    void SetValue(double value);
    std::int32_t GetInterpolation() const { return interpolation_; }
    void SetInterpolation(std::int32_t interpolation);  // an unknown one is ignored
    struct Tangent {
        Time time{0, 1};
        double value = 0;
    };  // relative to the key
    Tangent left, right;
    host::Data data;  // of a track that holds no numbers

  protected:
    Node *CreateSameKind() const override { return new Key; }
    bool CopyOwnState(Node *copy, std::int32_t flags, HostAliasTrans *translation) const override;
    bool RemoveFromOwner() override;

  private:
    friend class Curve;
    Curve *curve_ = nullptr;
    Time time_{0, 1};
    double value_ = 0;
    std::int32_t interpolation_ = kInterpolationSpline;
};

class Curve : public Node {
  public:
    explicit Curve(Track *track);
    ~Curve() override;
    std::int32_t Classification() const override { return kTypeCurve; }
    Node *Main() const override;
    Document *GetDocument() const override;
    Track *GetTrack() const { return track_; }

    std::int32_t KeyCount() const { return static_cast<std::int32_t>(keys_.size()); }
    Key *KeyAt(std::int32_t index) const;  // null out of range; ordered by time
    enum Match : std::int32_t { kMatchExact = 0, kMatchLeft = 1, kMatchRight = 2 };
    Key *FindKey(const Time &time, std::int32_t *index = nullptr, std::int32_t match = kMatchExact) const;
    Key *AddKey(const Time &time, std::int32_t *index = nullptr);  // an existing key at that time is returned
    bool InsertKey(Key *key);                                      // takes it over, in place of a key at the same time
    void RemoveKey(Key *key);                                      // the caller owns it
    void Flush();
    void Sort();
    // Between keys by the left key's interpolation; before the first and after the last key the end value; 0 without
    // keys. Exact at the keys.
    double ValueAt(const Time &time) const;
    double ValueAtSeconds(double seconds) const;

  protected:
    Node *CreateSameKind() const override { return new Curve(nullptr); }
    bool CopyOwnState(Node *copy, std::int32_t flags, HostAliasTrans *translation) const override;
    bool OwnedForGood() const override { return track_ != nullptr; }
    void DestroyBranches() override { Flush(); }

  private:
    friend class Track;
    friend class NodeState;
    std::size_t FirstAfter(const Time &time) const;  // index of the first key later than that
    void Place(Key *key, std::size_t index);
    void Exchange(Curve *other);  // the keys
    Track *track_;
    std::vector<Key *> keys_;
};

class Track : public Node {
  public:
    // Free; null when the parameter cannot be animated.
    static std::unique_ptr<Track> Create(Node *node, const TableDescID &id);
    ~Track() override;
    std::int32_t Classification() const override { return kTypeTrack; }
    Node *Main() const override { return node_; }
    Document *GetDocument() const override;
    const TableDescID &Id() const { return id_; }
    std::int32_t Category() const { return category_; }  // 1 numbers, 2 other data
    Curve *GetCurve() const { return curve_.get(); }
    std::int32_t before = kLoopConstant, after = kLoopConstant;
    // Of numbers: the curve, with the loop modes. Of other data: what DataAt gives, as a number.
    double ValueAt(const Time &time) const;
    // false: the loop mode leaves the parameter alone at that time, or there are no keys.
    bool Governs(const Time &time) const;
    const Key *KeyBefore(const Time &time) const;  // the last one before or at; else the first; null without keys
    host::Data DataAt(const Time &time) const;  // of that key; its value, cut to a whole number, where it has no data

  protected:
    Track(const TableDescID &id, std::int32_t category);
    Node *CreateSameKind() const override;
    bool CopyOwnState(Node *copy, std::int32_t flags, HostAliasTrans *translation) const override;
    bool RemoveFromOwner() override;

  private:
    friend class Node;
    friend class NodeState;
    TableDescID id_;
    std::int32_t category_;
    Node *node_ = nullptr;
    std::unique_ptr<Curve> curve_;
};

}  // namespace host
