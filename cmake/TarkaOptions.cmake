# Compiler settings shared by every target of the project.

# Assertions stay on in every build type, so no NDEBUG anywhere.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -g1")
set(CMAKE_CXX_FLAGS_DEBUG "-O0 -g")
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

# GCC would also warn of a constructor's parameter that is named like the member it initializes.
set(TARKA_SHADOW_WARNING $<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,-Wshadow>)

add_library(tarka_options INTERFACE)
# A header of lib/ is internal: it is included by its path there, as those of include/ are.
target_include_directories(tarka_options INTERFACE ${PROJECT_SOURCE_DIR}/lib)
target_compile_options(tarka_options INTERFACE
  -Wall -Wextra -Werror ${TARKA_SHADOW_WARNING} -Wnon-virtual-dtor -Wcast-qual -Wextra-semi
  -Wimplicit-fallthrough -Wsuggest-override
  -fno-semantic-interposition -fno-plt)
if(TARKA_SANITIZE)
  target_compile_options(tarka_options INTERFACE
    -fsanitize=${TARKA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tarka_options INTERFACE -fsanitize=${TARKA_SANITIZE})
endif()

find_program(CCACHE_PROGRAM ccache)
# ccache works badly with precompiled headers.
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER AND NOT TARKA_PRECOMPILE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

# What compiling against the libraries takes, without linking them.
add_library(tarka_headers INTERFACE)
target_include_directories(tarka_headers INTERFACE ${PROJECT_SOURCE_DIR}/include)
target_link_libraries(tarka_headers INTERFACE Tarka::LLVM)

# tarka_add_library(<target> <export name> <sources> [<libraries>...])
# One shared library of the project, usable from the build tree and from an installed copy. The
# program is linked from its objects.
function(tarka_add_library target export_name sources)
  add_library(${target} SHARED ${sources})
  add_library(Tarka::${export_name} ALIAS ${target})
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${export_name}
    INSTALL_RPATH "$ORIGIN"
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR})
  # Calls within a library go straight to the function.
  target_link_options(${target} PRIVATE LINKER:-Bsymbolic-functions)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/tarka>)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_libraries(${target}
    PUBLIC ${ARGN} Tarka::LLVM
    PRIVATE $<BUILD_INTERFACE:tarka_options>)
  tarka_precompile(${target})
endfunction()

# With TARKA_PRECOMPILE, the headers that most source files include are precompiled for each target.
# This can hide missing includes, so it is for development only.
function(tarka_precompile target)
  set(headers ${PROJECT_SOURCE_DIR}/cmake/Precompiled.h)
  if(NOT target STREQUAL tarkaAST)
    list(APPEND headers ${PROJECT_SOURCE_DIR}/include/AST/Program.h ${PROJECT_SOURCE_DIR}/include/AST/Statement.h)
  endif()
  if(TARKA_PRECOMPILE)
    target_compile_options(${target} PRIVATE -Xclang -fno-pch-timestamp -g1)
    target_precompile_headers(${target} PRIVATE ${headers} ${ARGN})
  endif()
endfunction()
