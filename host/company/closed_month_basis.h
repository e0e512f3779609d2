// How a closed month is shown: by what its documents were calculated from, not by what is in force now.
//
// When a month is closed it is settled who answers for it: the documents, if each of them keeps what it was calculated
// from, under the settings of the newest one; what is in force, if a program that kept nothing has calculated one.
#pragma once

#include <string>

#include "host/company/company.h"

namespace quor {

// The GUID of the document_settings by which the closed month of `date` is shown; "" for an open month, and for a
// closed one that what is in force answers for. Read once and kept.
std::string settings_of_closed_month(Company& company, Date date);

}  // namespace quor
