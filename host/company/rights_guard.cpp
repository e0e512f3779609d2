#include "host/company/rights_guard.h"

#include "platform/data/error.h"

namespace quor {

bool RightsGuard::allows(UserRight right, const std::string& object_type) {
  if (for_program_ > 0 && right == UserRight::kView) return true;
  return has_right(company_, user_, right, deciding_components(registrations_, deciding_type(object_type)));
}

bool RightsGuard::may_view(const std::string& object_type) {
  return any_allowed(viewed_with(object_type),
                     [this](const std::string& type) { return allows(UserRight::kView, type); });
}

void RightsGuard::require_right(UserRight right, const std::string& object_type, const std::string& what) {
  if (allows(right, object_type)) return;
  throw Error(ErrorKind::kRefused, refusal_text(company_, user_, what));
}

void RightsGuard::require_view(const std::string& object_type) {
  if (const std::string text = view_refusal(object_type); !text.empty()) throw Error(ErrorKind::kRefused, text);
}

void RightsGuard::require_view(const std::string& object_type, const std::string& what) {
  if (may_view(object_type)) return;
  throw Error(ErrorKind::kRefused, refusal_text(company_, user_, what));
}

std::string RightsGuard::view_refusal(const std::string& object_type) {
  if (may_view(object_type)) return "";
  return refusal_text(company_, user_, std::string("peržiūrėti ") + viewed_plural(object_type));
}

void RightsGuard::require_administrator(const std::string& what) {
  if (may_administer(company_, user_)) return;
  throw Error(ErrorKind::kRefused, refusal_text(company_, user_, what + ": tai leidžiama tik administratoriui"));
}

}  // namespace quor
