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
        nodes_.push_back(std::move(node));
    }

    /// All entries so far; the collector is empty afterwards.
    [[nodiscard]] Map collect() {
        Map result;
        if (ascending_) {
            for (Node& node : nodes_)
                result.insert(result.end(), std::move(node));
        } else {
            const auto order = sorted();
            for (std::size_t i = 0; i < order.size(); ++i)
                if (i + 1 == order.size() || keyOf(order[i]) != keyOf(order[i + 1]))
                    result.insert(result.end(), std::move(nodes_[order[i].index]));
        }
        nodes_.clear();
        ascending_ = true;
        return result;
    }

private:
    /// The start of a key beside its place: most comparisons need no look at the key itself.
    struct Place {
        std::uint64_t start = 0;
        std::size_t index = 0;
    };

    [[nodiscard]] const std::wstring& keyOf(const Place& place) const {
        return nodes_[place.index].key();
    }

    /// The characters of a key from `from` on, packed so that smaller keys have smaller numbers
    /// and equal numbers leave the matter open.
    [[nodiscard]] static std::uint64_t pack(std::wstring_view key, std::size_t from) {
        constexpr std::size_t width = 8;
        std::uint64_t packed = 0;
        bool open = true;
        for (std::size_t i = from; i < from + width; ++i) {
            const auto c = open && i < key.size() ? static_cast<std::uint32_t>(key[i]) : 0U;
            packed = (packed << 8) | std::min(c, 255U);
            open = open && c < 255;
        }
        return packed;
    }

    /// Part numbers of one series differ far behind their start, so what all keys begin with is
    /// left out.
    [[nodiscard]] std::size_t commonStart() const {
        const std::wstring_view first = nodes_.front().key();
        std::size_t common = first.size();
        for (const Node& node : nodes_) {
            const std::wstring_view key = node.key();
            std::size_t same = 0;
            while (same < std::min(common, key.size()) && key[same] == first[same])
                ++same;
            common = same;
        }
        return common;
    }

    [[nodiscard]] std::vector<Place> sorted() const {
        const std::size_t from = commonStart();
        std::vector<Place> order(nodes_.size());
        for (std::size_t i = 0; i < order.size(); ++i)
            order[i] = {pack(nodes_[i].key(), from), i};
        std::sort(order.begin(), order.end(), [this](const Place& a, const Place& b) {
            if (a.start != b.start)
                return a.start < b.start;
            const int keys = keyOf(a).compare(keyOf(b));
            return keys != 0 ? keys < 0 : a.index < b.index;
        });
        return order;
    }

    Map maker_;
    std::vector<Node> nodes_;
    bool ascending_ = true;
};

} // namespace partwright
