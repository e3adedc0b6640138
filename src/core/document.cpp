#include "core/document.h"

namespace zel {

void Document::clear() {
  data.clear();
  frequencies.clear();
  visible.clear();
  systems.clear();
  files.clear();
  changed = false;
}

}  // namespace zel
