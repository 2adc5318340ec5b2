# What every target of the project shares: the language level, warnings, strict Qt and sanitizers,
# on one interface target that each library links.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

add_library(paneda_common INTERFACE)
target_include_directories(paneda_common INTERFACE "${PROJECT_SOURCE_DIR}/src")
target_compile_options(paneda_common INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    $<$<BOOL:${PANEDA_WARNINGS_AS_ERRORS}>:-Werror>)
target_compile_definitions(paneda_common INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_URL_CAST_FROM_STRING
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_CONTEXTLESS_CONNECT
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_NO_FOREACH
    QT_NO_KEYWORDS
    QT_USE_QSTRINGBUILDER
    QT_STRICT_ITERATORS
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(CMAKE_CROSSCOMPILING)
    # Header-only, so that the host's copy serves; the host's other headers must stay out of sight.
    find_path(PANEDA_EXPECTED_HEADERS tl/expected.hpp PATHS /usr/include NO_DEFAULT_PATH
        NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/host-headers")
    file(CREATE_LINK "${PANEDA_EXPECTED_HEADERS}/tl" "${CMAKE_BINARY_DIR}/host-headers/tl" SYMBOLIC)
    target_include_directories(paneda_common SYSTEM INTERFACE "${CMAKE_BINARY_DIR}/host-headers")
    # For tests without a display, which see no font of the system.
    find_path(PANEDA_TEST_FONTS DejaVuSans.ttf PATHS /usr/share/fonts/truetype/dejavu NO_DEFAULT_PATH
        NO_CMAKE_FIND_ROOT_PATH)
endif()

if(PANEDA_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(PANEDA_FUZZ)
    # What guides a fuzz target is compiled into the libraries, where it does not disturb other programs.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# Reading the headers of Qt is much of what a compilation does. One set serves all targets that are compiled alike: it has
# no definition of a module, and a target without Qt Gui cannot include or link it in spite of what the set has read.
function(paneda_precompiled_set name)
    file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/${name}.cpp" CONTENT "")
    add_library(${name} OBJECT "${CMAKE_BINARY_DIR}/${name}.cpp")
    target_link_libraries(${name} PRIVATE paneda_common Qt6::Core)
    target_include_directories(${name} SYSTEM PRIVATE $<TARGET_PROPERTY:Qt6::Gui,INTERFACE_INCLUDE_DIRECTORIES>)
    target_compile_options(${name} PRIVATE ${ARGN})
    target_precompile_headers(${name} PRIVATE "${PROJECT_SOURCE_DIR}/cmake/precompiled.h")
endfunction()

# The programs of the tests are not optimized, and the sanitizers look at the tested code only. With clang and the
# sanitizers, a test then compiles in a third of the time.
set(paneda_test_options -O0)
if(PANEDA_SANITIZE)
    list(APPEND paneda_test_options -fno-sanitize=all)
endif()

if(PANEDA_PRECOMPILE)
    paneda_precompiled_set(paneda_precompiled)
    paneda_precompiled_set(paneda_precompiled_tests ${paneda_test_options})
endif()

function(paneda_precompile target)
    if(PANEDA_PRECOMPILE)
        target_precompile_headers(${target} REUSE_FROM paneda_precompiled)
    endif()
endfunction()

# For the program of a test.
function(paneda_compile_test target)
    target_compile_options(${target} PRIVATE ${paneda_test_options})
    if(CMAKE_CROSSCOMPILING)
        # Half of such a program would be names that no debugger reads.
        target_link_options(${target} PRIVATE -s)
    endif()
    if(PANEDA_PRECOMPILE)
        target_precompile_headers(${target} REUSE_FROM paneda_precompiled_tests)
    endif()
endfunction()

# One static library per folder of src/. The source list is explicit; what it may use is its link list.
function(paneda_library name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
    add_library(paneda_${name} STATIC ${arg_SOURCES})
    target_link_libraries(paneda_${name} PUBLIC paneda_common ${arg_LINK})
    set_target_properties(paneda_${name} PROPERTIES OUTPUT_NAME ${name} AUTOMOC ON AUTOUIC ON)
    paneda_precompile(paneda_${name})
endfunction()

# Runs moc over the source of a test that includes its own .moc file. AUTOMOC would do the same with two programs more
# for each target, which doubles the time of a test's build.
function(paneda_test_moc name)
    get_target_property(sources ${name} SOURCES)
    list(FILTER sources INCLUDE REGEX "tst_[^/]*\\.cpp$")
    foreach(source IN LISTS sources)
        cmake_path(GET source STEM stem)
        set(moc "${CMAKE_CURRENT_BINARY_DIR}/moc/${stem}.moc")
        qt_generate_moc("${source}" "${moc}" TARGET ${name})
        target_sources(${name} PRIVATE "${moc}")
    endforeach()
    target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/moc")
endfunction()

# A Qt Test program of one source, registered with ctest under its file name.
function(paneda_test name)
    cmake_parse_arguments(arg "" "LABEL" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    paneda_test_moc(${name})
    target_link_libraries(${name} PRIVATE Qt6::Test paneda_test_support ${arg_LINK})
    paneda_compile_test(${name})
    if(WIN32 AND NOT "${arg_LINK}" STREQUAL "paneda_core")
        # In a static Qt a program has the plugins that it names and no other.
        qt_import_plugins(${name} INCLUDE Qt6::QOffscreenIntegrationPlugin)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set(environment "QT_QPA_PLATFORM=offscreen")
    if(CMAKE_CROSSCOMPILING)
        # Without a console the results would be told to a debugger only.
        list(APPEND environment "QT_FORCE_STDERR_LOGGING=1" "QT_QPA_FONTDIR=${PANEDA_TEST_FONTS}" "PANEDA_RUNS=3")
        set_tests_properties(${name} PROPERTIES FIXTURES_REQUIRED wine)
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT 120 ENVIRONMENT "${environment}")
    if(arg_LABEL)
        set_tests_properties(${name} PROPERTIES LABELS "${arg_LABEL}")
    endif()
endfunction()
