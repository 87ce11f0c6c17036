# SPDX-License-Identifier: GPL-3.0-or-later
# How the player's targets are made: warnings and Qt definitions in one place, one helper for a library, one for a test.

add_library(kiv_options INTERFACE)
target_include_directories(kiv_options INTERFACE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
target_compile_options(kiv_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Woverloaded-virtual)
target_compile_definitions(kiv_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CONTEXTLESS_CONNECT QT_NO_FOREACH QT_NO_KEYWORDS
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(KIV_SANITIZE)
  target_compile_options(kiv_options INTERFACE
    -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  target_link_options(kiv_options INTERFACE -fsanitize=address,undefined)
endif()
if(KIV_FUZZ)
  target_compile_options(kiv_options INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  target_link_options(kiv_options INTERFACE -fsanitize=address,undefined)
endif()

# What Debian asks of programs: a mistake with memory ends the player instead of doing harm. Some of it depends on the
# processor.
include(CheckCXXCompilerFlag)
foreach(flag stack-protector-strong stack-clash-protection cf-protection)
  check_cxx_compiler_flag(-f${flag} KIV_HAS_${flag})
  if(KIV_HAS_${flag})
    target_compile_options(kiv_options INTERFACE $<$<CONFIG:Release>:-f${flag}>)
  endif()
endforeach()
target_compile_options(kiv_options INTERFACE
  $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2 -Wformat -Werror=format-security>)
target_link_options(kiv_options INTERFACE $<$<CONFIG:Release>:-Wl,-z,relro,-z,now>)

find_program(KIV_MOLD mold)
if(KIV_MOLD)
  add_link_options(-fuse-ld=mold)
endif()
find_program(KIV_CCACHE ccache)
if(KIV_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
      ${KIV_CCACHE})
endif()

# kiv_library(NAME [MOC] SOURCES file... LIBRARIES library...): the library of one folder of src/, headers listed too; MOC
# where one of them has a Q_OBJECT.
function(kiv_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "MOC" "" "SOURCES;LIBRARIES")
  add_library(${name} STATIC ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ${arg_MOC})
  target_link_libraries(${name} PUBLIC kiv_options ${arg_LIBRARIES})
endfunction()

# Tests of these folders are labelled "gui": they run on a screen too (KIV_TEST_DISPLAY, see scripts/with-own-home).
set(KIV_FOLDERS_WITH_WINDOWS controls settings playlist tagedit filetools app)

# kiv_test(NAME [UNDER command...] LIBRARIES library...): tst_NAME.cpp of this folder as one test with a home of its own,
# run by that command where one is given.
function(kiv_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "UNDER;LIBRARIES")
  add_executable(tst_${name} tst_${name}.cpp)
  set_target_properties(tst_${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(tst_${name} PRIVATE kiv_options test_support ${arg_LIBRARIES} Qt6::Test)
  add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/scripts/with-own-home ${arg_UNDER} $<TARGET_FILE:tst_${name}>)
  set_tests_properties(${name} PROPERTIES TIMEOUT 120)
  get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  if(folder IN_LIST KIV_FOLDERS_WITH_WINDOWS)
    set_tests_properties(${name} PROPERTIES LABELS gui)
  endif()
endfunction()
