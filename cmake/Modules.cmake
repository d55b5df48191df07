# partwright_module(Core core SOURCES a.cpp b.cpp DEPENDS Partwright::Other)
#
# One folder of src/ is one static library with the alias Partwright::<Name>. What it links is its
# wall: nothing else of the tree can be included from it.
function(partwright_module name target)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(partwright_${target} STATIC ${ARG_SOURCES})
  add_library(Partwright::${name} ALIAS partwright_${target})
  target_include_directories(partwright_${target} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(partwright_${target} PUBLIC ${ARG_DEPENDS} PRIVATE partwright_warnings)
endfunction()

# partwright_test(core SOURCES a_test.cpp DEPENDS Partwright::Core)
#
# One test program a folder; ctest sees each GoogleTest case.
function(partwright_test target)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_executable(${target}_test ${ARG_SOURCES})
  target_include_directories(${target}_test PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${target}_test PRIVATE
    ${ARG_DEPENDS} partwright_places GTest::gmock GTest::gtest_main partwright_warnings)
  gtest_discover_tests(${target}_test TEST_PREFIX "${target}." DISCOVERY_TIMEOUT 60)
endfunction()
