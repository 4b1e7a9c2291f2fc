#pragma once

#include <algorithm>
#include <list>
#include <utility>

namespace winlite
{

/// The values used last, by key. Few enough to be searched one by one.
template<class Key, class Value>
class RecentCache
{
public:
    explicit RecentCache(std::size_t nMost) : m_nMost(nMost) {}

    /// The value, or NULL; it stays where it is until the next Add.
    const Value* Find(const Key& key)
    {
        const auto it = std::find_if(m_Entries.begin(), m_Entries.end(), [&](const auto& e) { return e.first == key; });
        if (it == m_Entries.end())
            return nullptr;
        m_Entries.splice(m_Entries.begin(), m_Entries, it);
        return &it->second;
    }

    /// Adds a value whose key is not there yet, in place of the one that was not used for longest.
    const Value& Add(Key key, Value value)
    {
        if (m_Entries.size() >= m_nMost)
            m_Entries.pop_back();
        m_Entries.emplace_front(std::move(key), std::move(value));
        return m_Entries.front().second;
    }

private:
    std::size_t m_nMost;
    std::list<std::pair<Key, Value>> m_Entries; ///< The latest first.
};

} // namespace winlite
