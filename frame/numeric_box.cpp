#include "frame/numeric_box.h"

#include "frame/catalogue.h"

namespace velmora {

void make_numeric_box(quor::TextBox& box, std::int16_t decimals) {
  box.on_enter = [&box] { catalogue::select_all(box); };
  box.on_key = [&box](char32_t key) { return catalogue::numeric_key(key, box.text(), false, true); };
  box.on_leave = [&box, decimals] {
    const std::string before = box.text();
    box.set_text(catalogue::normalised_number(before, decimals, true));
    if (box.text() != before && box.on_change) box.on_change();
  };
}

}  // namespace velmora
