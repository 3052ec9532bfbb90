# Compile options shared by every target of the tree, and the function that declares a layer of the library.

add_library(qvxml_options INTERFACE)
target_compile_features(qvxml_options INTERFACE cxx_std_20)
target_compile_options(qvxml_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor)
# GCC's leaves out the signs.
target_compile_options(qvxml_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wconversion>)
# At -O3 GCC 12 sees copies within a std::string overlap that do not.
target_compile_options(qvxml_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(QVXML_WERROR)
  target_compile_options(qvxml_options INTERFACE -Werror)
endif()
if(QVXML_SANITIZE)
  target_compile_options(qvxml_options INTERFACE -fsanitize=${QVXML_SANITIZE} -fno-omit-frame-pointer
                                                 -fno-sanitize-recover=all)
  target_link_options(qvxml_options INTERFACE -fsanitize=${QVXML_SANITIZE})
endif()
if(QVXML_LIBFUZZER)
  # The library itself must be instrumented too, or the fuzzer steers by its own target alone.
  target_compile_options(qvxml_options INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(qvxml_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# One layer: an OBJECT library whose objects go into the shared library and the static archive.
# HEADERS are installed as they lie; PRIVATE_HEADERS are listed for reviews and are not.
function(qvxml_layer name)
  cmake_parse_arguments(LAYER "" "" "SOURCES;HEADERS;PRIVATE_HEADERS;LIBRARIES" ${ARGN})
  add_library(qvxml_${name} OBJECT ${LAYER_SOURCES})
  target_include_directories(qvxml_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(qvxml_${name} PRIVATE qvxml_options ${LAYER_LIBRARIES})
  # Exported functions may be inlined within the library.
  target_compile_options(qvxml_${name} PRIVATE -fno-semantic-interposition)
  set_target_properties(
    qvxml_${name}
    PROPERTIES POSITION_INDEPENDENT_CODE ON
               CXX_VISIBILITY_PRESET hidden
               VISIBILITY_INLINES_HIDDEN ON
               CXX_EXTENSIONS OFF)
  list(TRANSFORM LAYER_HEADERS PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  set_property(GLOBAL APPEND PROPERTY QVXML_LAYERS qvxml_${name})
  set_property(GLOBAL APPEND PROPERTY QVXML_PUBLIC_HEADERS ${LAYER_HEADERS})
  set_property(GLOBAL APPEND PROPERTY QVXML_LIBRARIES ${LAYER_LIBRARIES})
endfunction()
