# SPDX-License-Identifier: GPL-3.0-or-later
# Qt 6 where this system has all parts that the program needs, Qt 5 elsewhere. VELT_QT (5 or 6) asks for one of them.
# Qt's own targets are the same for both (Qt::Core); those of KDE are named with ${KF}, QCA's with ${QCA}.
set(VELT_QT "" CACHE STRING "Major version of Qt to build with (5 or 6); empty: 6 where all parts of it are installed")
set(qt_components Core Gui Widgets Network DBus Concurrent LinguistTools)
set(kf_components Archive CoreAddons ItemViews)

set(minimum_5 5.15)
set(minimum_6 6.8)
set(minimum_kf_5 5.92) # KSignalHandler
set(minimum_kf_6 6.0)

set(qt ${VELT_QT})
if(NOT qt)
    set(qt 6)
    # Qt itself comes last: where a part of KDE is missing, nothing of Qt 6 may be in the way of Qt 5.
    foreach(part IN LISTS kf_components ITEMS Qca Qt)
        if(part STREQUAL Qt)
            find_package(Qt6 ${minimum_6} QUIET COMPONENTS ${qt_components})
            set(found ${Qt6_FOUND})
        elseif(part STREQUAL Qca)
            find_package(Qca-qt6 QUIET)
            set(found ${Qca-qt6_FOUND})
        else()
            find_package(KF6${part} ${minimum_kf_6} QUIET)
            set(found ${KF6${part}_FOUND})
        endif()
        if(NOT found)
            set(qt 5)
            break()
        endif()
    endforeach()
endif()

find_package(Qt${qt} ${minimum_${qt}} REQUIRED COMPONENTS ${qt_components})
if(BUILD_TESTING OR VELT_BENCHMARKS)
    find_package(Qt${qt} ${minimum_${qt}} REQUIRED COMPONENTS Test)
endif()
set(KF KF${qt})
foreach(component IN LISTS kf_components)
    find_package(${KF}${component} ${minimum_kf_${qt}} REQUIRED)
endforeach()
set(QCA qca-qt${qt})
find_package(Qca-qt${qt} REQUIRED)
# For those who package the program.
set(VELT_QT_FOUND ${qt} CACHE INTERNAL "Major version of Qt that is built with")
