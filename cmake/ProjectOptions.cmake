# SPDX-License-Identifier: GPL-3.0-or-later
# An interface target with the language, the warnings and Qt's strict definitions for all targets.
add_library(project_options INTERFACE)
target_compile_features(project_options INTERFACE cxx_std_17)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Build type" FORCE)
endif()

# In tests with Qt 6: the macros that try something again convert times to int wherever they stand.
define_property(TARGET PROPERTY VELT_TRIES_AGAIN INITIALIZE_FROM_VARIABLE VELT_TRIES_AGAIN
    BRIEF_DOCS "Built without warnings about conversions")
target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow $<$<NOT:$<BOOL:$<TARGET_PROPERTY:VELT_TRIES_AGAIN>>>:-Wconversion> -Wold-style-cast -Wcast-qual -Wnon-virtual-dtor
    -Woverloaded-virtual -Wformat=2 -Wundef -Wsuggest-override -Wnull-dereference -Wextra-semi
    $<$<CXX_COMPILER_ID:GNU>:-Wlogical-op -Wduplicated-cond>
    $<$<BOOL:${VELT_WERROR}>:-Werror>)

target_compile_definitions(project_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_NO_FOREACH QT_NO_KEYWORDS QT_USE_QSTRINGBUILDER QT_STRICT_ITERATORS
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_DISABLE_DEPRECATED_BEFORE=0x050F00)

if(VELT_SANITIZE)
    add_compile_options(-fsanitize=${VELT_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${VELT_SANITIZE})
    # With the sanitizers' instrumentation, the compiler's flow analysis gives false warnings.
    target_compile_options(project_options INTERFACE -Wno-null-dereference
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
elseif(CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo)$")
    # At -O3, gcc 12 wrongly sees a null pointer in the copy of every empty QVector.
    target_compile_options(project_options INTERFACE -Wno-null-dereference)
    add_compile_options(-fstack-protector-strong -fstack-clash-protection)
    add_compile_definitions($<$<COMPILE_LANGUAGE:CXX>:_FORTIFY_SOURCE=2>)
    add_link_options(LINKER:-z,relro,-z,now)
endif()
