// How a data object lets its record be edited without knowing the form: whoever runs the program brings the form.
#pragma once

#include <functional>

#include "frame/contract/quor_application.h"
#include "frame/contract/quor_object_uio.h"

namespace quor {

// Lets the user edit the record that the data object has read; answers whether it was stored. Throws StoreError.
using RecordEditor = std::function<bool(QuorApplication& application, QuorObjectUIO& record)>;

}  // namespace quor
