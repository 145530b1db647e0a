# What `cmake --install` puts in place for applications:
#   include/liveview/               the library's, the utility library's and the host platform's
#                                   public headers (their names are unique, so one folder)
#   include/liveview/host_control/  host_control.h and the host headers that it includes, seen
#                                   only by those who link LiveView::host_control
#   lib/                            the libraries
#   lib/cmake/LiveView/             find_package(LiveView CONFIG): LiveView::live_view_manager,
#                                   LiveView::host_control and the libraries they link
#   lib/pkgconfig/liveview.pc       the same for pkg-config
#   bin/liveview                    the command line, when it is built

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(LV_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/liveview)
set(LV_INSTALL_CONTROL_INCLUDEDIR ${LV_INSTALL_INCLUDEDIR}/host_control)
set(LV_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/LiveView)

set(LV_HOST_PUBLIC_DIRS utils ipc bundle want media ability hilog hisysevent hiappevent notification)
set(LV_HOST_LIBRARIES host_utils host_ipc host_bundle host_want host_media host_ability host_hilog
    host_hisysevent host_hiappevent host_notification)
set(LV_INSTALLED_LIBRARIES live_view_manager live_view_utils_common ${LV_HOST_LIBRARIES} host_control)
# host_control.h includes these host-internal headers; they are installed beside it only.
set(LV_CONTROL_HEADERS
    ${PROJECT_SOURCE_DIR}/host_platform/control/include/host_control.h
    ${PROJECT_SOURCE_DIR}/host_platform/hiappevent/internal/app_event_sink.h
    ${PROJECT_SOURCE_DIR}/host_platform/hilog/internal/log_sink.h
    ${PROJECT_SOURCE_DIR}/host_platform/hisysevent/internal/sys_event_sink.h
    ${PROJECT_SOURCE_DIR}/host_platform/notification/internal/notification_service.h
    ${PROJECT_SOURCE_DIR}/host_platform/notification/internal/service_backend.h
    ${PROJECT_SOURCE_DIR}/host_platform/utils/internal/record_sink.h)

# The targets name their headers by build-tree folders only; add where they are once installed.
foreach(target live_view_manager live_view_utils_common ${LV_HOST_LIBRARIES})
    set_property(TARGET ${target} APPEND PROPERTY
        INTERFACE_INCLUDE_DIRECTORIES $<INSTALL_INTERFACE:${LV_INSTALL_INCLUDEDIR}>)
endforeach()
set_property(TARGET host_control APPEND PROPERTY
    INTERFACE_INCLUDE_DIRECTORIES $<INSTALL_INTERFACE:${LV_INSTALL_CONTROL_INCLUDEDIR}>)

set(LV_NATIVE_DIR ${PROJECT_SOURCE_DIR}/live_activity_framework/frameworks/native)
set(LV_PUBLIC_HEADER_DIRS ${LV_NATIVE_DIR}/live_activity_manager/include/
    ${LV_NATIVE_DIR}/utils_common/include/)
foreach(dir ${LV_HOST_PUBLIC_DIRS})
    list(APPEND LV_PUBLIC_HEADER_DIRS ${PROJECT_SOURCE_DIR}/host_platform/${dir}/include/)
endforeach()
install(DIRECTORY ${LV_PUBLIC_HEADER_DIRS}
    DESTINATION ${LV_INSTALL_INCLUDEDIR}
    FILES_MATCHING PATTERN "*.h")
install(FILES ${LV_CONTROL_HEADERS} DESTINATION ${LV_INSTALL_CONTROL_INCLUDEDIR})

install(TARGETS ${LV_INSTALLED_LIBRARIES}
    EXPORT LiveViewTargets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(TARGET liveview)
    install(TARGETS liveview RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

# Everything that the install takes, without the tests: `cmake --build <dir> --target lv_package`.
add_custom_target(lv_package)
add_dependencies(lv_package ${LV_INSTALLED_LIBRARIES})
if(TARGET liveview)
    add_dependencies(lv_package liveview)
endif()

install(EXPORT LiveViewTargets
    NAMESPACE LiveView::
    DESTINATION ${LV_INSTALL_CMAKEDIR}
    FILE LiveViewTargets.cmake)

set(LV_PACKAGE_DIR ${PROJECT_BINARY_DIR}/package)
file(WRITE ${LV_PACKAGE_DIR}/LiveViewConfig.cmake
"# find_package(LiveView CONFIG): the live view library, its utility library and the host
# platform with the embedded notification service and its remote mode, as LiveView:: targets.
include(CMakeFindDependencyMacro)
find_dependency(Threads)
find_dependency(cJSON)
# host_notification links Debian's cpp-httplib by its plain name: look for it here, so that a
# machine without it fails at find_package with the reason instead of at link time.
find_library(LiveView_CPP_HTTPLIB_LIBRARY cpp-httplib)
mark_as_advanced(LiveView_CPP_HTTPLIB_LIBRARY)
if(NOT LiveView_CPP_HTTPLIB_LIBRARY)
    set(LiveView_FOUND FALSE)
    set(LiveView_NOT_FOUND_MESSAGE
        \"the cpp-httplib library is missing (Debian package libcpp-httplib-dev)\")
    return()
endif()
include(\"\${CMAKE_CURRENT_LIST_DIR}/LiveViewTargets.cmake\")
")
write_basic_package_version_file(${LV_PACKAGE_DIR}/LiveViewConfigVersion.cmake
    VERSION ${PROJECT_VERSION}
    COMPATIBILITY SameMinorVersion)
install(FILES ${LV_PACKAGE_DIR}/LiveViewConfig.cmake ${LV_PACKAGE_DIR}/LiveViewConfigVersion.cmake
    DESTINATION ${LV_INSTALL_CMAKEDIR})

# pkg-config: the prefix is found from the file's own place, so the install may be moved or made
# with `cmake --install --prefix`. Static libraries are listed in link order, dependants first.
file(RELATIVE_PATH LV_PC_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
set(LV_PC_LIBS live_view_manager live_view_utils_common host_control host_notification
    host_bundle host_ipc host_want host_media host_hilog host_hisysevent host_hiappevent host_utils)
list(TRANSFORM LV_PC_LIBS PREPEND "-l")
list(JOIN LV_PC_LIBS " " LV_PC_LIBS)
file(WRITE ${LV_PACKAGE_DIR}/liveview.pc
"prefix=\${pcfiledir}/${LV_PC_TO_PREFIX}
libdir=\${prefix}/${CMAKE_INSTALL_LIBDIR}
includedir=\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}

Name: liveview
Description: Live view client library with the host platform and its embedded notification service
Version: ${PROJECT_VERSION}
Requires: libcjson cpp-httplib
Cflags: -I\${includedir}/liveview -I\${includedir}/liveview/host_control
Libs: -L\${libdir} ${LV_PC_LIBS} -pthread
")
install(FILES ${LV_PACKAGE_DIR}/liveview.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
