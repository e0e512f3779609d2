#include "adapters/tarification_object.h"

#include "frame/object_types.h"

namespace velmora {

namespace {

constexpr NamedData kData[] = {{"Parent", DataSource::kParent}};

}  // namespace

UIO0402100::UIO0402100(quor::QuorApplication& application) : ForwardingObject(application, kTarificationType, kData) {}

}  // namespace velmora
