# Compile options of the project's own code; consumers do not inherit them.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo)
endif()
find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(project_options INTERFACE)
# A fused multiply-add would change what truncation after adding 0.9999 yields, so contraction stays off.
target_compile_options(project_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
    -ffp-contract=off $<$<BOOL:${PIXTANE_WERROR}>:-Werror>)
if(PIXTANE_PATTERN_FILL)
    add_compile_definitions(PIXTANE_PATTERN_FILL)
endif()
if(PIXTANE_SANITIZE)
    add_compile_options(-fsanitize=${PIXTANE_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${PIXTANE_SANITIZE})
    # Instrumented code defeats this analysis, which then warns of the standard library.
    target_compile_options(project_options INTERFACE -Wno-maybe-uninitialized)
endif()
