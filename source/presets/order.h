// The names of preset files and category folders: an order prefix, "_", and what the panel displays ("03_Walk").
#pragma once

#include <vector>

#include "c4d.h"

// After the first "_"; the whole name where there is none.
String DisplayName(const String &name);

// Whether `a` stands before `b` in a list. Prefixes: the shorter one first, those of equal length as text. Where a
// name has no prefix, both are compared whole, without regard to case and up to the last character of the shorter one.
// Not transitive: what a list looks like depends on how it is sorted.
Bool ComesBefore(const String &a, const String &b);

// By the order above, as an insertion sort from the present order leaves it; `name_of(item)` is an item's name.
template <class Item, class NameOf>
void SortByName(std::vector<Item> *items, NameOf name_of) {
    for (std::size_t i = 1; i < items->size(); i++) {
        const Item item = (*items)[i];
        std::size_t place = i;
        for (; place > 0 && ComesBefore(name_of(item), name_of((*items)[place - 1])); place--)
            (*items)[place] = (*items)[place - 1];
        (*items)[place] = item;
    }
}
