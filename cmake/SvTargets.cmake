# Helpers that keep the per-folder CMakeLists short.
#
# sv_host_library(<sub> [DEPS ...] [LIBS ...])
#   Builds host/<sub>/*.cpp into the shared library svhost_<sub>. The host is
#   shared so that its global state (tolerances, class dictionary, database
#   list) exists once for the executable and the module it loads.
#
# sv_gtest(<name> SOURCES ... LIBS ...)
#   A GoogleTest executable whose tests ctest discovers one by one.

function(sv_host_library sub)
  cmake_parse_arguments(A "" "" "DEPS;LIBS" ${ARGN})
  file(GLOB srcs CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(NOT srcs)
    return()  # a subsystem that has only headers so far
  endif()
  add_library(svhost_${sub} SHARED ${srcs})
  target_include_directories(svhost_${sub} PUBLIC ${PROJECT_SOURCE_DIR})
  foreach(d IN LISTS A_DEPS)
    target_link_libraries(svhost_${sub} PUBLIC svhost_${d})
  endforeach()
  target_link_libraries(svhost_${sub} PUBLIC ${A_LIBS})
  set_property(GLOBAL APPEND PROPERTY SV_HOST_LIBS svhost_${sub})
endfunction()

function(sv_gtest name)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/test-home/config ${CMAKE_BINARY_DIR}/test-home/tmp)
  cmake_parse_arguments(A "" "" "SOURCES;LIBS" ${ARGN})
  if(NOT A_SOURCES)
    file(GLOB A_SOURCES CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  endif()
  if(NOT A_SOURCES)
    return()  # a test folder that has no tests yet
  endif()
  add_executable(${name} ${A_SOURCES})
  target_link_libraries(${name} PRIVATE ${A_LIBS} GTest::gtest GTest::gtest_main GTest::gmock)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120
    # Tests never touch the real user folders.
    ENVIRONMENT "SV_SOURCE_DIR=${PROJECT_SOURCE_DIR};XDG_CONFIG_HOME=${CMAKE_BINARY_DIR}/test-home/config;TMPDIR=${CMAKE_BINARY_DIR}/test-home/tmp")
endfunction()

# Adds every immediate sub-folder of the current folder that has a CMakeLists.txt.
function(sv_add_subdirs)
  file(GLOB children LIST_DIRECTORIES true ${CMAKE_CURRENT_SOURCE_DIR}/*)
  foreach(child IN LISTS children)
    if(IS_DIRECTORY ${child} AND EXISTS ${child}/CMakeLists.txt)
      add_subdirectory(${child})
    endif()
  endforeach()
endfunction()
