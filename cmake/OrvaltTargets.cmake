# Compile options that every target shares, and the helpers that make a library or a test.

add_library(orvalt_options INTERFACE)
target_compile_features(orvalt_options INTERFACE cxx_std_17)
target_include_directories(orvalt_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_definitions(orvalt_options INTERFACE
    QT_NO_DEPRECATED_WARNINGS QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH)
# Single precision has to stay single: no contraction into fused operations.
target_compile_options(orvalt_options INTERFACE
    -Wall -Wextra -Wshadow -Wno-deprecated-declarations -ffp-contract=off
    $<$<BOOL:${ORVALT_WERROR}>:-Werror>)
if(ORVALT_SANITIZE)
    target_compile_options(orvalt_options INTERFACE
        -fsanitize=${ORVALT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
    target_link_options(orvalt_options INTERFACE -fsanitize=${ORVALT_SANITIZE})
endif()
if(ORVALT_COVERAGE)
    target_compile_options(orvalt_options INTERFACE --coverage)
    target_link_options(orvalt_options INTERFACE --coverage)
endif()
target_link_libraries(orvalt_options INTERFACE Qt5::Core Qt5::Gui)

# One static library per folder; the precompiled header is made once, with the model.
function(orvalt_library name)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp
         ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.h)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC orvalt_options ${ARGN})
    if(NOT name STREQUAL "ui")
        # No QObject lives in the engine, and moc's helper targets would tie its archives into a
        # knot: they refer to each other, which only plain archives may.
        set_target_properties(${name} PROPERTIES AUTOMOC OFF)
    endif()
    if(name STREQUAL "model")
        target_precompile_headers(model PRIVATE ${CMAKE_SOURCE_DIR}/cmake/pch.h)
    elseif(NOT name STREQUAL "ui")
        target_precompile_headers(${name} REUSE_FROM model)
    endif()
endfunction()
