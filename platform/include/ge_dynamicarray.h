// A growable array in the host's memory.
#pragma once

#include <new>

#include "c4d_memory.h"

template <class T>
class GeDynamicArray {
  public:
    GeDynamicArray() : items_(NULL), count_(0), room_(0) {}
    GeDynamicArray(const GeDynamicArray &) = delete;
    GeDynamicArray &operator=(const GeDynamicArray &) = delete;
    ~GeDynamicArray() { FreeArray(); }

    LONG GetCount() const { return count_; }
    Bool Content() const { return count_ > 0; }
    // The index must lie in the array.
    T &operator[](LONG index) { return items_[index]; }
    const T &operator[](LONG index) const { return items_[index]; }

    // FALSE when out of memory: the array is as it was.
    Bool Push(const T &item) { return Insert(item, count_); }
    // FALSE when there is nothing to take off.
    Bool Pop() { return Remove(count_ - 1); }
    Bool Insert(const T &item, LONG index) {
        // `item` may lie in this array, which is about to move.
        T copy(item);
        if (index < 0 || index > count_ || count_ == 2147483647 || !Reserve(count_ + 1)) return FALSE;
        new (items_ + count_) T();
        for (LONG i = count_; i > index; --i) items_[i] = items_[i - 1];
        items_[index] = copy;
        ++count_;
        return TRUE;
    }
    Bool Remove(LONG index, LONG amount = 1) {
        if (index < 0 || amount <= 0 || index >= count_) return FALSE;
        if (amount > count_ - index) amount = count_ - index;
        for (LONG i = index; i + amount < count_; ++i) items_[i] = items_[i + amount];
        Shrink(count_ - amount);
        return TRUE;
    }
    // New items are T(); what there was stays.
    Bool ReSize(LONG count) {
        if (count < 0 || !Reserve(count)) return FALSE;
        while (count_ < count) new (items_ + count_++) T();
        Shrink(count);
        return TRUE;
    }
    Bool ReSizeNC(LONG count) { return ReSize(count); }
    void FreeArray() {
        Shrink(0);
        GeFree(items_);
        room_ = 0;
    }
    void Reset() { FreeArray(); }

    // Position, or NOTOK.
    LONG Find(const T &item) const {
        for (LONG i = 0; i < count_; ++i)
            if (items_[i] == item) return i;
        return NOTOK;
    }
    void Fill(const T &item) {
        T copy(item);
        for (LONG i = 0; i < count_; ++i) items_[i] = copy;
    }

  private:
    void Shrink(LONG count) {
        while (count_ > count) items_[--count_].~T();
    }
    Bool Reserve(LONG count) {
        if (count <= room_) return TRUE;
        LONG room = room_ < 16 ? 16 : room_ > 2147483647 / 2 ? 2147483647 : room_ * 2;
        if (room < count) room = count;
        T *items = GeAllocType(T, room);
        if (!items) return FALSE;
        for (LONG i = 0; i < count_; ++i) {
            new (items + i) T(items_[i]);
            items_[i].~T();
        }
        GeFree(items_);
        items_ = items;
        room_ = room;
        return TRUE;
    }

    T *items_;
    LONG count_, room_;
};
