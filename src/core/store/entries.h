#pragma once

#include "core/text/text_rules.h"

#include <QString>

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

namespace paneda {

enum class SortOrder { Ascending, Descending };

// Sorts by text fields, in the store's text order: by the first, where that is equal by the second, and so
// on. Equal entries keep their order.
template <class Entry>
void SortEntries(std::vector<Entry>& list, std::initializer_list<QString Entry::*> keys, SortOrder order) {
    std::stable_sort(list.begin(), list.end(), [keys, order](const Entry& a, const Entry& b) {
        for (QString Entry::*key : keys) {
            const int result = CompareText(a.*key, b.*key);
            if (result != 0)
                return (result < 0) == (order == SortOrder::Ascending);
        }
        return false;
    });
}

template <class Entry>
void AppendEntry(std::vector<Entry>& list, Entry entry) {
    list.push_back(std::move(entry));
}

// Removes one entry. An index beyond the list changes nothing.
template <class Entry>
void RemoveEntry(std::vector<Entry>& list, std::size_t index) {
    if (index < list.size())
        list.erase(list.begin() + std::ptrdiff_t(index));
}

} // namespace paneda
