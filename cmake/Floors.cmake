# One target per floor. A floor links only to the floors below it; tests/house holds the includes to the same order.

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(corvane_flags INTERFACE)
target_compile_options(corvane_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror
  -Wno-invalid-offsetof -ffp-contract=off
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)  # false alarms of GCC 12 on std::string
if(CORVANE_SANITIZE)
  target_compile_options(corvane_flags INTERFACE
    -fsanitize=${CORVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(corvane_flags INTERFACE -fsanitize=${CORVANE_SANITIZE})
endif()
find_program(MOLD mold)
if(MOLD)
  target_link_options(corvane_flags INTERFACE -fuse-ld=mold)
endif()

# corvane_floor(NAME [floors and libraries it stands on...]): every .cpp of the calling folder.
function(corvane_floor name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(sources)
    add_library(corvane_${name} STATIC ${sources})
    set(scope PUBLIC)
  else()
    add_library(corvane_${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(corvane_${name} ${scope} ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(corvane_${name} ${scope} corvane_flags ${ARGN})
endfunction()

# corvane_test(NAME libraries...): every *_test.cpp of tests/NAME as one program.
function(corvane_test name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(test_${name} ${sources})
  target_include_directories(test_${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(test_${name} PRIVATE ${ARGN} GTest::gtest GTest::gtest_main)
  target_compile_definitions(test_${name} PRIVATE
    CORVANE_SOURCE_DIR="${PROJECT_SOURCE_DIR}" CORVANE_BINARY_DIR="${PROJECT_BINARY_DIR}")
  # Servers of sound that start and end side by side keep each other's clients out.
  if(name STREQUAL platform)
    set(alone RESOURCE_LOCK sound_server)
  endif()
  gtest_discover_tests(test_${name} TEST_PREFIX ${name}. DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen" ${alone})
endfunction()
