#include "screen/ControlArray.h"

namespace tolmen {

Control* ControlArrayBase::FindByCaption(const std::string& caption) const {
  for (int index : Indexes()) {
    auto* member = dynamic_cast<CaptionedControl*>(Member(index));
    if (member && CaptionMatches(member->Caption(), caption)) return member;
  }
  return nullptr;
}

}  // namespace tolmen
