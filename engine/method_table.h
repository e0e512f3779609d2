// The engine's methods by name: how the parameters of each convert, and what runs.
#pragma once

#include <string_view>

#include "frame/contract/quor_object_uio.h"

namespace velmora {

class UIO0402000;

// Runs the method of exactly that name; an unknown name gives an empty result. A parameter that is missing or does not
// convert throws quor::Error before the method runs.
quor::MethodResult run_method(UIO0402000& engine, std::string_view name, const quor::Parameters& parameters);

}  // namespace velmora
