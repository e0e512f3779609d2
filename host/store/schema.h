// The company's schema as numbered migrations: 0001_company.sql, 0002_….sql. Each is applied once, in one transaction,
// and recorded in schema_migrations(number, applied_at); a migration that was released never changes.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/store/database.h"
#include "platform/data/embedded_file.h"

namespace quor {

// The migrations that this program knows, in the order of their numbers.
std::span<const EmbeddedFile> migration_files();

// True when the tables of a company are there.
bool holds_company(Database& database);

// Makes the tables of a new company, inside the open transaction.
void make_schema(Database& database);

// Applies what is lacking. Throws kNewerSchema when the company has migrations that `files` do not know; a migration
// that fails leaves the company as the one before left it. An older company that may only be read throws kNotWritable.
void migrate(Database& database, std::span<const EmbeddedFile> files = migration_files());

// The statements of a script, without comments: the databases take one at a time. A semicolon inside '…' or a
// comment ends nothing.
std::vector<std::string> split_statements(std::string_view script);

}  // namespace quor
