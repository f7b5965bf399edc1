# vocarium_layer(name folder [FLAT] DEPENDS targets...)
#
# One layer of the program: every .cpp below `folder` (FLAT: directly in it) becomes the target vocarium::name. Its headers
# are found as "<folder below src>/file.h" and only by targets that link the layer: each layer has an
# include root of its own that holds nothing but a link to its folder, so an upward include does not
# compile. A layer without sources yet is an interface target. src/cli holds the program's main and
# becomes the executable vocarium-cli beside its library.
function(vocarium_layer name folder)
  cmake_parse_arguments(ARG "FLAT" "" "DEPENDS" ${ARGN})
  string(REGEX REPLACE "^src/" "" below ${folder})
  set(root ${CMAKE_BINARY_DIR}/layers/${name})
  get_filename_component(parent ${root}/${below} DIRECTORY)
  file(MAKE_DIRECTORY ${parent})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${folder} ${root}/${below} SYMBOLIC)

  if(ARG_FLAT)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
  else()
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
  endif()
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  if(sources)
    add_library(vocarium_${name} STATIC ${sources})
    target_include_directories(vocarium_${name} PUBLIC ${root})
    target_link_libraries(vocarium_${name} PUBLIC ${ARG_DEPENDS})
    vocarium_own_code(vocarium_${name})
  else()
    add_library(vocarium_${name} INTERFACE)
    target_include_directories(vocarium_${name} INTERFACE ${root})
    target_link_libraries(vocarium_${name} INTERFACE ${ARG_DEPENDS})
  endif()
  add_library(vocarium::${name} ALIAS vocarium_${name})

  if(EXISTS ${CMAKE_SOURCE_DIR}/${folder}/main.cpp)
    add_executable(vocarium-${name} ${CMAKE_SOURCE_DIR}/${folder}/main.cpp)
    target_link_libraries(vocarium-${name} PRIVATE vocarium::${name})
    vocarium_own_code(vocarium-${name})
  endif()
endfunction()

# Warnings are errors in our own code; the sanitizers go into every object when they are on.
function(vocarium_own_code target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
                                           -Wnon-virtual-dtor -Wold-style-cast -Werror)
  # Once it optimises, g++ 12 warns falsely about "text" + std::string (its fault 105651) and about moved
  # std::variants (105562); the debug and sanitize builds keep both warnings.
  set(optimised $<AND:$<CXX_COMPILER_ID:GNU>,$<NOT:$<CONFIG:Debug>>>)
  target_compile_options(${target} PRIVATE $<${optimised}:-Wno-restrict> $<${optimised}:-Wno-maybe-uninitialized>)
  if(VOCARIUM_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=address,undefined)
  endif()
  if(VOCARIUM_FUZZ)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined)
    target_link_options(${target} PUBLIC -fsanitize=address,undefined)
  endif()
endfunction()
