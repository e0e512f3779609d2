// A company that CSV files come into, and what is told of them.
#pragma once

#include <fstream>
#include <gtest/gtest.h>

#include "host/exchange/export.h"
#include "host/exchange/import.h"
#include "tests/support/company_place.h"

namespace quor {

struct Source {
  const char* table;
  std::string text;
};

class ImportCompany : public testing::TestWithParam<Backend> {
 protected:
  // Two departments and two people; the work-time codes FD (1), VD (2), 8 (3) and A (8); December 2007 is closed, with
  // the document 5 in it.
  ImportCompany() {
    bring({{"departments", "id,parent_id,name\n1,,Skyrius\n2,1,Poskyris\n"},
           {"employees", "id,department_id,name,usr_acc_date\n1,1,Žilinas,2005-01-31\n2,2,Čepaitė,\n"},
           {"constant_types", "id,code,name\n1,MMA,Alga\n2,MVA,Valanda\n"},
           {"indications",
            "id,indication_code,code_id,code,code_name\n1,WorkTime,1,FD,a\n2,WorkTime,2,VD,b\n3,WorkTime,3,8,c\n"
            "4,WorkTime,8,A,d\n5,Other,9,XX,e\n"},
           {"worked_time", "employee_id,date,time_code,hours\n1,2007-12,FD,160\n1,2008-01-15,FD,8\n"},
           {"documents",
            "id,guid,employee_id,month,check_code,check_message\n5,D5,1,2007-12,0,\"\"\n6,D6,1,2008-01,0,\"\"\n"},
           {"closed_months", "month,closed_by,closed_at\n2007-12,O,2008.01.05 09:00\n"}});
  }

  std::vector<ImportedTable> bring(const std::vector<Source>& sources) {
    std::vector<ImportSource> files;
    for (const Source& source : sources) {
      files.push_back({find_stored_table(source.table), folder_.path(std::string(source.table) + ".csv")});
      std::ofstream(files.back().file, std::ios::binary) << source.text;
    }
    return import_tables(guard_, files);
  }

  // The faults of the import, a line each, files named without their folder; "" when there are none. Warnings as
  // "line words text;".
  std::string faults_of(const std::vector<Source>& sources, std::string* warnings = nullptr) {
    try {
      for (const ImportedTable& done : bring(sources)) {
        for (const ImportFault& odd : done.warnings) {
          if (warnings != nullptr) *warnings += std::to_string(odd.line) + " " + odd.column + " " + odd.text + ";";
        }
      }
      return "";
    } catch (const ImportRefused& refused) {
      std::string text = refused.what();
      const std::string folder = folder_.path("");
      for (auto at = text.find(folder); at != std::string::npos; at = text.find(folder)) text.erase(at, folder.size());
      return text;
    }
  }

  std::string exported(const char* table) { return export_table(guard_, *find_stored_table(table)); }
  std::string everything() {
    std::string all = std::to_string(database().change_count()) + "\n";
    for (const StoredTable& table : stored_tables()) all += export_table(guard_, table);
    return all;
  }

  Database& database() { return company_.database(); }

  TemporaryFolder folder_;
  std::unique_ptr<CompanyPlace> place_ = GetParam().make_place();
  Company company_{Database::create(place_->address())};
  Registrations registrations_;
  RightsGuard guard_{company_, registrations_, "testuotoja"};
};
inline const std::string kTime = "employee_id,date,time_code,hours\n";
inline const std::string kDepartments = "id,parent_id,name\n";
inline const std::string kTypes = "id,code,name\n";
}  // namespace quor
