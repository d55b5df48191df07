# One set of warnings for every target; a warning is an error.
add_library(partwright_warnings INTERFACE)
if(MSVC)
  target_compile_options(partwright_warnings INTERFACE /W4 /WX /utf-8)
else()
  target_compile_options(partwright_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
endif()
