// The data object of an employee: the card, and the employee's extra charges. A new card is a standard object: what is
// asked for here by the type alone is nobody.
//
//   "PersonalExtraCharge"         opens the editor of the charge whose GUID is the parameter ("" for a new one); true
//                                 when it was stored
//   "DeletePersonalExtraCharge"   deletes that charge; true when it was deleted
//
// What is refused is shown to the user, once, and answered with false.
#pragma once

#include <cstdint>
#include <string>

#include "host/objects/record_editor.h"
#include "host/objects/standard_object_uio.h"

namespace quor {

class EmployeeObject : public StandardObjectUIO {
 public:
  EmployeeObject(QuorApplication& application, Company& company, std::string user, RecordEditor edit_charge);

  SaveStatus Read() override;
  MethodResult Methods(const std::string& name, const Parameters& parameters) override;

 private:
  bool edit_charge(std::int32_t employee, const std::string& guid);
  bool delete_charge(std::int32_t employee, const std::string& guid);
  // Throws StoreError when the employee has no such charge.
  std::string charge_key(std::int32_t employee, const std::string& guid);
  void show(const std::string& text);

  RecordEditor edit_charge_;
};

}  // namespace quor
