// The table of all services.
#include <vector>

#include "host/runtime/declaration.hpp"
#include "host/runtime/service.hpp"

namespace host {

std::span<const Service> services() {
  static const std::vector<Service> all = [] {
    std::vector<Service> list;
    for (const auto& theme : {frameServices(), objectServices(), propertyServices(), variantServices(), stringServices(),
                              arrayServices(), memoryBlockServices(), folderItemServices()}) {
      list.insert(list.end(), theme.begin(), theme.end());
    }
    return list;
  }();
  return all;
}

const Service* findService(std::string_view name) {
  static const TextMap<const Service*> index = [] {
    TextMap<const Service*> map;
    for (const Service& service : services()) map.emplace(service.name, &service);
    return map;
  }();
  const auto found = index.find(name);
  return found != index.end() ? found->second : nullptr;
}

}  // namespace host
