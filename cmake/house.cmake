# Builds the targets of a folder of src/: a logic target that links no module with widgets and, if the folder has windows,
# a second target `<folder>_ui`. The windows link everything that the logic uses.

add_library(house_options INTERFACE)
# g++ 12 wrongly reports array bounds where Qt concatenates an empty string.
target_compile_options(house_options INTERFACE -Wall -Wextra -Wpedantic -Werror -Wnon-virtual-dtor -Woverloaded-virtual
                                               -Wno-missing-field-initializers -Wno-array-bounds
                                               -Winvalid-pch $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
target_compile_definitions(house_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS
                                                   QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_USE_QSTRINGBUILDER)

# Two sets of precompiled headers serve all folders, one for logic and one for windows; a third one serves all tests.
set(house_headers <optional> <variant> <functional> <memory> <vector>)
function(house_precompile name headers)
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/${name}.cpp CONTENT "")
  add_library(${name} STATIC ${PROJECT_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PUBLIC house_options ${ARGN})
  target_precompile_headers(${name} PRIVATE ${headers} ${house_headers})
endfunction()
house_precompile(house_logic_headers <QtCore/QtCore> Qt6::Core)
house_precompile(house_ui_headers <QtWidgets/QtWidgets> Qt6::Widgets)

function(house_folder name)
  cmake_parse_arguments(F "" "" "LOGIC;UI;USES;LIBRARIES;UI_LIBRARIES" ${ARGN})
  if(F_LOGIC)
    add_library(${name} STATIC ${F_LOGIC})
    target_precompile_headers(${name} REUSE_FROM house_logic_headers)
    set(reach PUBLIC)
  else()
    add_library(${name} INTERFACE)
    set(reach INTERFACE)
  endif()
  target_include_directories(${name} ${reach} ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} ${reach} house_options Qt6::Core ${F_USES} ${F_LIBRARIES})
  if(F_UI)
    add_library(${name}_ui STATIC ${F_UI})
    set_target_properties(${name}_ui PROPERTIES AUTOMOC ON)
    target_link_libraries(${name}_ui PUBLIC ${name} Qt6::Widgets ${F_UI_LIBRARIES})
    foreach(used IN LISTS F_USES)
      if(TARGET ${used}_ui)
        target_link_libraries(${name}_ui PUBLIC ${used}_ui)
      endif()
    endforeach()
    target_precompile_headers(${name}_ui REUSE_FROM house_ui_headers)
  endif()
endfunction()

# house_tests(marc USES marc SOURCES a.cpp b.cpp): one test program `<name>_tests`, run without a screen. With SERVERS the
# database servers are running during its tests, and no other test uses them meanwhile; with CATALOGUES the catalogues of
# scripts/catalogue-servers are.
set(TARVEX_TEST_TIMEOUT 60 CACHE STRING "Seconds that one test may take; a build with sanitizers needs more")
function(house_tests name)
  cmake_parse_arguments(T "SERVERS;CATALOGUES" "" "SOURCES;USES" ${ARGN})
  if(T_SERVERS)
    set(servers FIXTURES_REQUIRED servers RESOURCE_LOCK servers)
  elseif(T_CATALOGUES)
    set(servers FIXTURES_REQUIRED catalogues)
  endif()
  add_executable(${name}_tests ${T_SOURCES})
  set_target_properties(${name}_tests PROPERTIES AUTOMOC ON)
  target_link_libraries(${name}_tests PRIVATE test_support ${T_USES})
  target_precompile_headers(${name}_tests REUSE_FROM house_test_headers)
  if(UNIX OR NOT name MATCHES "_servers$") # the servers need Unix
    add_dependencies(test_programs ${name}_tests)
  endif()
  gtest_discover_tests(${name}_tests TEST_PREFIX ${name}. DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT ${TARVEX_TEST_TIMEOUT} ${servers} ENVIRONMENT "QT_QPA_PLATFORM=offscreen;TZ=Asia/Shanghai;LC_ALL=C.UTF-8")
endfunction()
