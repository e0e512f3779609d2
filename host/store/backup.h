// Copies of a company that is kept in a file, and its return to what a copy holds.
//
// A company on a server has no file here: its copies are made by the server's tools, and each function refuses its
// address with a text that says so.
#pragma once

#include <string>

#include "host/store/database.h"

namespace quor {

// "įmonė.quor" and the present moment: "įmonė-2026-01-31-134510.quor" beside it; `mark` stands before the date. In the
// company's folder, but for one in memory; a place where nothing stands yet.
std::string free_copy_name(const std::string& company, const std::string& mark = "");

// Throws StoreError when the company is on a server.
void refuse_server_copies(Database& database);

// Writes a copy of the open company, whole and of one moment, as a new file at `place`; whoever writes meanwhile waits.
// It is its owner's alone. Throws StoreError and leaves nothing at a place where something stands already, where
// nothing can be written, or when a transaction is open.
void back_up(Database& database, const std::string& place);

// Brings the company at `company` back to what the file `copy` holds; the copy stays as it is, one of an older program
// comes in with today's schema. Our own connections to the company are closed. What stood there is kept first as a file
// beside it, whose path is answered ("" when nothing stood). A program that has the company open goes on with what
// came. Throws StoreError, and what stood there stands as it was, when the copy is no sound company or of a newer
// program, when another program holds the company, or when something else than a company stands there. A damaged
// company is given the other name, and the copy takes its place.
std::string restore_company(const std::string& company, const std::string& copy);

}  // namespace quor
