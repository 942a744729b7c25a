// Characters and their hash, held together.
#include "standin/text/link.hpp"

#include <functional>

namespace standin::text {

Link::Link(std::u16string target) {
  if (target.empty()) return;
  const size_t hash = std::hash<std::u16string>()(target);
  shared_ = std::make_shared<const Shared>(Shared{std::move(target), hash});
}

const std::u16string& Link::text() const {
  static const std::u16string none;
  return shared_ != nullptr ? shared_->text : none;
}

}  // namespace standin::text
