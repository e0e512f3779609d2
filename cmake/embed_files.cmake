# velmora_embed(TARGET FUNCTION FILES...): compiles the files into TARGET.
# The generated source defines `std::span<const quor::EmbeddedFile> FUNCTION()`, in the order given;
# its declaration stands in the header of the part that uses it.
function(velmora_embed target function)
  set(body "")
  set(table "")
  set(index 0)
  foreach(file IN LISTS ARGN)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${file})
    file(READ ${CMAKE_CURRENT_SOURCE_DIR}/${file} hex HEX)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
    get_filename_component(stem ${file} NAME_WE)
    string(APPEND body "constexpr unsigned char kBytes${index}[] = {${bytes}0};\n")
    string(APPEND table "    {\"${stem}\", {kBytes${index}, sizeof kBytes${index} - 1}},\n")
    math(EXPR index "${index} + 1")
  endforeach()
  string(REPLACE "::" "_" file_name ${function})
  string(REGEX MATCH "^(.*)::([^:]+)$" unused ${function})
  set(namespace ${CMAKE_MATCH_1})
  set(name ${CMAKE_MATCH_2})
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${file_name}.cpp @ONLY CONTENT
"#include \"platform/data/embedded_file.h\"
namespace {
${body}constexpr quor::EmbeddedFile kFiles[] = {
${table}};
}
namespace @namespace@ {
std::span<const quor::EmbeddedFile> @name@();
std::span<const quor::EmbeddedFile> @name@() { return kFiles; }
}
")
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${file_name}.cpp)
endfunction()
