# Installs the build into a private prefix as a user or packager would, and checks what a desktop
# reads there: the menu entry and the software-centre description pass their validators and name
# the installed program and icon, the icon has every size, the version of the project is a
# release, the installed program runs, and the translations and themes are in the data folder.
# cmake -DBUILD_DIR=<build> -DPREFIX=<empty folder> -DAPP_ID=<id> -DVERSION=<version> -P CheckInstall.cmake
file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${PREFIX}"
    RESULT_VARIABLE failed OUTPUT_QUIET ERROR_VARIABLE errors)
if(failed)
    message(FATAL_ERROR "cmake --install failed: ${errors}")
endif()

set(share "${PREFIX}/share")
set(desktop "${share}/applications/${APP_ID}.desktop")
set(metainfo "${share}/metainfo/${APP_ID}.metainfo.xml")
set(expected "${PREFIX}/bin/orvel" "${desktop}" "${metainfo}"
    "${share}/icons/hicolor/scalable/apps/${APP_ID}.svg" "${share}/orvel/translations/orvel_zh-Hans.qm")
foreach(theme orvel orvel-day orvel-night)
    list(APPEND expected "${share}/orvel/themes/${theme}.theme.json")
endforeach()
foreach(file ${expected})
    if(NOT EXISTS "${file}")
        message(FATAL_ERROR "not installed: ${file}")
    endif()
endforeach()

# A PNG's width and height stand in its header, as two 32-bit numbers from byte 16.
foreach(size 16 22 24 32 48 64 128 256 512)
    set(icon "${share}/icons/hicolor/${size}x${size}/apps/${APP_ID}.png")
    if(NOT EXISTS "${icon}")
        message(FATAL_ERROR "not installed: ${icon}")
    endif()
    file(READ "${icon}" header OFFSET 16 LIMIT 8 HEX)
    string(SUBSTRING "${header}" 0 8 width)
    string(SUBSTRING "${header}" 8 8 height)
    math(EXPR width "0x${width}")
    math(EXPR height "0x${height}")
    if(NOT width EQUAL size OR NOT height EQUAL size)
        message(FATAL_ERROR "${icon} is ${width}x${height}")
    endif()
endforeach()

# The validators pass files with hints or warnings; a warning fails here too.
foreach(check "desktop-file-validate;${desktop}" "appstreamcli;validate;--no-net;${metainfo}")
    execute_process(COMMAND ${check} RESULT_VARIABLE failed OUTPUT_VARIABLE said ERROR_VARIABLE said)
    if(failed OR said MATCHES "(^|\n)(W|E): |warning|error")
        message(FATAL_ERROR "${check}:\n${said}")
    endif()
endforeach()

# The entry starts the installed program with the chosen folders, under the installed icon.
file(STRINGS "${desktop}" exec REGEX "^Exec=")
file(STRINGS "${desktop}" icon REGEX "^Icon=")
string(REGEX REPLACE "^Exec=([^ ]+) %F$" "\\1" program "${exec}")
string(REGEX REPLACE "^Icon=" "" icon "${icon}")
if(NOT EXISTS "${PREFIX}/bin/${program}" OR NOT EXISTS "${share}/icons/hicolor/scalable/apps/${icon}.svg")
    message(FATAL_ERROR "the menu entry's '${exec}' or icon '${icon}' is not installed")
endif()
file(READ "${metainfo}" description)
if(NOT description MATCHES "<launchable type=\"desktop-id\">${APP_ID}.desktop</launchable>")
    message(FATAL_ERROR "the description does not launch ${APP_ID}.desktop")
endif()
if(NOT description MATCHES "<release version=\"${VERSION}\"")
    message(FATAL_ERROR "the description lists no release ${VERSION}")
endif()

execute_process(COMMAND "${PREFIX}/bin/orvel" --version RESULT_VARIABLE failed OUTPUT_VARIABLE said)
if(failed OR NOT said STREQUAL "Orvel ${VERSION}\n")
    message(FATAL_ERROR "the installed program answers '${said}'")
endif()
