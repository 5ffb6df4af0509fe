// Turns a module's constant dispatch table into the map that is looked up once
// per image. Range insertion into a std::map keeps the first row of a key.
#ifndef VYAPI_IP_VYDISPATCHMAP_H
#define VYAPI_IP_VYDISPATCHMAP_H

#include <cstddef>
#include <map>
#include <utility>

namespace VyApi {

template <typename Key, typename Fn>
struct SVyDispatchRow {
  Key key;
  Fn fn;
};

template <typename Key, typename Fn, size_t N>
std::map<Key, Fn> MakeDispatchMap(const SVyDispatchRow<Key, Fn> (&rows)[N]) {
  std::map<Key, Fn> map;
  for (const auto& row : rows) map.insert(std::make_pair(row.key, row.fn));
  return map;
}

/// The function of a key, or a null function when the map has none.
template <typename Key, typename Fn>
Fn LookUpDispatch(const std::map<Key, Fn>& map, Key key) {
  auto it = map.find(key);
  return it == map.end() ? Fn() : it->second;
}

}  // namespace VyApi

#endif
