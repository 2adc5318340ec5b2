# Cross-builds for Windows (x86-64) with Debian's mingw-w64, posix threads, and a static Qt.
#
# Which Qt: PANEDA_WINDOWS_QT as a variable or in the environment, else build/windows-qt, where
# packaging/windows/prepare-qt puts it.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(paneda_triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${paneda_triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${paneda_triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${paneda_triplet}-windres)

# The Qt itself is built with this file too; what follows is for programs that use it. Compile checks read
# this file again, in a project of their own.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES PANEDA_TOOLCHAIN_COMPILER_ONLY PANEDA_WINDOWS_QT)
if(PANEDA_TOOLCHAIN_COMPILER_ONLY)
    set(CMAKE_FIND_ROOT_PATH /usr/${paneda_triplet})
else()
    if(NOT PANEDA_WINDOWS_QT)
        if(NOT "$ENV{PANEDA_WINDOWS_QT}" STREQUAL "" AND IS_DIRECTORY "$ENV{PANEDA_WINDOWS_QT}")
            set(PANEDA_WINDOWS_QT "$ENV{PANEDA_WINDOWS_QT}")
        else()
            get_filename_component(paneda_root "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)
            set(PANEDA_WINDOWS_QT "${paneda_root}/build/windows-qt")
        endif()
    endif()
    if(NOT EXISTS "${PANEDA_WINDOWS_QT}/lib/cmake/Qt6/Qt6Config.cmake")
        message(FATAL_ERROR "There is no Qt for Windows in ${PANEDA_WINDOWS_QT}. "
            "packaging/windows/prepare-qt unpacks or builds one.")
    endif()
    set(PANEDA_WINDOWS_QT "${PANEDA_WINDOWS_QT}" CACHE PATH "Static Qt for Windows" FORCE)

    # A prefix that is also a root would be joined to itself, hence the folder below it.
    set(CMAKE_FIND_ROOT_PATH "${PANEDA_WINDOWS_QT}" /usr/${paneda_triplet})
    list(APPEND CMAKE_PREFIX_PATH "${PANEDA_WINDOWS_QT}/lib/cmake")
    set(ZLIB_USE_STATIC_LIBS ON)

    # The programs of the build, tests included, run under Wine.
    set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/run-wine")
endif()

set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# moc, uic and rcc are the host's, of the same version.
set(QT_HOST_PATH /usr CACHE PATH "Where the host's Qt is")
if(NOT QT_HOST_PATH_CMAKE_DIR)
    file(GLOB paneda_host_info "${QT_HOST_PATH}/lib/*/cmake/Qt6HostInfo" "${QT_HOST_PATH}/lib/cmake/Qt6HostInfo")
    list(GET paneda_host_info 0 paneda_host_info)
    set(Qt6HostInfo_DIR "${paneda_host_info}" CACHE PATH "")
    get_filename_component(paneda_host_cmake "${paneda_host_info}" DIRECTORY)
    set(QT_HOST_PATH_CMAKE_DIR "${paneda_host_cmake}" CACHE PATH "")
endif()

# One file, whatever the machine it runs on has installed.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
