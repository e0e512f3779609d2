# Options of every target of ours; never exported to what links against them.

# velmora_target(NAME): warnings as errors, exact floating point, sanitizers when asked for.
function(velmora_target name)
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_compile_options(${name} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough -Werror
    # One rounding per operation: a fused multiply-add would change money.
    -ffp-contract=off
    # Nobody replaces our functions at load time: within a shared library they may be inlined.
    -fno-semantic-interposition)
  # GCC 12 reports std::string and std::vector internals here when it inlines under optimisation or
  # the sanitizers; the address sanitizer finds the real ones at run time.
  target_compile_options(${name} PRIVATE -Wno-restrict -Wno-maybe-uninitialized)
  if(VELMORA_SANITIZE)
    target_compile_options(${name} PRIVATE
      -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
      # A quarter of the build's time; the address sanitizer stops at what is read through such a pointer.
      -fno-sanitize=null,alignment)
    target_link_options(${name} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()
