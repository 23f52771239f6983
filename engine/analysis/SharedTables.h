#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <utility>

namespace kestreleq::analysis
{

/** Tables that are the same wherever they are needed: each is made once, shared by all who use it at the time, and goes
    with the last of them. Any thread; allocates. */
template <typename Key, typename Table>
class SharedTables
{
public:
    /** The key's table, by this function if there is none at present. */
    template <typename Make>
    std::shared_ptr<const Table> get (const Key& key, Make&& make)
    {
        const std::scoped_lock lock (mutex);
        auto& known = tables[key];
        auto table = known.lock();

        if (table == nullptr)
            known = table = std::make_shared<const Table> (std::forward<Make> (make)());

        return table;
    }

private:
    std::mutex mutex;
    std::map<Key, std::weak_ptr<const Table>> tables;
};

} // namespace kestreleq::analysis
