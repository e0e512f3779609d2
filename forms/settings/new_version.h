// What a new version of the civil-servant settings starts with.
#pragma once

#include "frame/contract/quor_object_uio.h"

namespace velmora {

// Fills the fields and Rows of the new record `settings`, which has its GUID, as a copy of the version `in_force`: the
// lines of one version as the request "OfficeEmployeeSettings" answers them, one for each band. Bands get GUIDs of
// their own. Without a line only the limits are filled, with those of the very first version. Leaves a filter on
// `in_force`.
void start_as_copy(quor::QuorObjectUIO& settings, quor::Recordset& in_force);

}  // namespace velmora
