# Each folder of src/ is a set of sources; a layer is a static library over one or
# more folders. Sources are globbed so that adding a file needs no CMake edit.

function(quil_add_layer name)
  cmake_parse_arguments(ARG "" "" "DIRS;DEPS" ${ARGN})
  set(sources)
  foreach(dir IN LISTS ARG_DIRS)
    file(GLOB dir_sources CONFIGURE_DEPENDS
         ${PROJECT_SOURCE_DIR}/src/${dir}/*.cpp ${PROJECT_SOURCE_DIR}/src/${dir}/*.h
         ${PROJECT_SOURCE_DIR}/src/${dir}/*.qrc)
    list(APPEND sources ${dir_sources})
  endforeach()
  set(compiled ${sources})
  list(FILTER compiled INCLUDE REGEX "\\.cpp$")
  if(compiled)
    add_library(${name} STATIC ${sources})
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
    set(scope PUBLIC)
  else()
    # A layer whose folders hold only headers so far.
    add_library(${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(${name} ${scope} ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} ${scope} ${ARG_DEPS})
endfunction()

# One test program per *_test.cpp: a half-written test elsewhere never stops a build,
# and ctest lists every case by name. Programs named *_pg_test talk to the throwaway
# PostgreSQL server that the postgres fixture starts (QUIL_PG_PORT, compiled in, tells them where).
function(quil_add_tests dir)
  cmake_parse_arguments(ARG "" "" "DEPS" ${ARGN})
  file(GLOB test_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${dir}/*_test.cpp)
  string(REPLACE "/" "_" prefix ${dir})
  foreach(source IN LISTS test_sources)
    get_filename_component(stem ${source} NAME_WE)
    set(target ${prefix}_${stem})
    add_executable(${target} ${source})
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${target} PRIVATE ${ARG_DEPS} quil_test_main GTest::gmock)
    target_compile_definitions(${target} PRIVATE
      QUIL_SOURCE_DIR="${PROJECT_SOURCE_DIR}" QUIL_PG_PORT=${QUIL_PG_PORT})
    set(properties LABELS ${prefix})
    if(stem MATCHES "_pg_test$")
      set(properties FIXTURES_REQUIRED postgres RESOURCE_LOCK postgres LABELS postgres)
    endif()
    gtest_discover_tests(${target}
      DISCOVERY_MODE PRE_TEST
      WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
      PROPERTIES ${properties})
  endforeach()
endfunction()
