#pragma once

// Fills a map with many entries whose keys come in any order, at the cost of one sort instead of a
// search per entry: entries wait as nodes of the map, so nothing of them is moved when they are put
// in. Of entries with one key the last counts.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace partwright {

template <class Map>
class NodeCollector {
public:
    using Node = typename Map::node_type;

    /// A node with an empty key.
    [[nodiscard]] Node make() {
        return maker_.extract(maker_.try_emplace(typename Map::key_type()).first);
    }

    void take(Node node) {
        ascending_ = ascending_ && (nodes_.empty() || nodes_.back().key() < node.key());
        places_.push_back({pack(node.key(), 0), pack(node.key(), packed), nodes_.size()});
        nodes_.push_back(std::move(node));
    }

    /// Key of the entry that was taken as number `index`.
    [[nodiscard]] const typename Map::key_type& key(std::size_t index) const {
        return nodes_[index].key();
    }

    /// All entries so far; the collector is empty afterwards. `dropped` is told the number of each
    /// entry that does not count, and of the next one with its key.
    template <class Dropped>
    [[nodiscard]] Map collect(Dropped dropped) {
        if (!ascending_)
            sortPlaces();
        Map result;
        for (std::size_t i = 0; i < places_.size(); ++i)
            if (ascending_ || i + 1 == places_.size() || !sameKey(places_[i], places_[i + 1]))
                result.insert(result.end(), std::move(nodes_[places_[i].index]));
            else
                dropped(places_[i].index, places_[i + 1].index);
        places_.clear();
        nodes_.clear();
        ascending_ = true;
        return result;
    }

private:
    /// Characters of a key in one number.
    static constexpr std::size_t packed = 8;

    /// An entry's place in the file, with the start of its key: most comparisons need no look at
    /// the key itself, which is far away in memory.
    struct Place {
        std::uint64_t start = 0;
        std::uint64_t next = 0;
        std::size_t index = 0;
    };

    /// The characters of a key from `from` on, so that smaller keys have smaller numbers and equal
    /// numbers leave the matter open. A character beyond Latin-1 ends what can be told.
    [[nodiscard]] static std::uint64_t pack(std::wstring_view key, std::size_t from) {
        constexpr std::uint32_t unknown = 255;
        std::uint64_t number = 0;
        bool known = true;
        for (std::size_t i = 0; i < from + packed; ++i) {
            const auto c = known && i < key.size() ? static_cast<std::uint32_t>(key[i]) : 0U;
            if (i >= from)
                number = (number << 8) | std::min(c, unknown);
            known = known && c < unknown;
        }
        return number;
    }

    [[nodiscard]] const std::wstring& keyOf(const Place& place) const {
        return nodes_[place.index].key();
    }

    [[nodiscard]] bool sameKey(const Place& a, const Place& b) const {
        return a.start == b.start && a.next == b.next && keyOf(a) == keyOf(b);
    }

    void sortPlaces() {
        std::sort(places_.begin(), places_.end(), [this](const Place& a, const Place& b) {
            if (a.start != b.start)
                return a.start < b.start;
            if (a.next != b.next)
                return a.next < b.next;
            const int keys = keyOf(a).compare(keyOf(b));
            return keys != 0 ? keys < 0 : a.index < b.index;
        });
    }

    Map maker_;
    std::vector<Node> nodes_;
    std::vector<Place> places_;
    bool ascending_ = true;
};

} // namespace partwright
