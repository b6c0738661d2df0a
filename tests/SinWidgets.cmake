# SPDX-License-Identifier: GPL-3.0-or-later
# The core library must stay free of windows: none of its files may include a Widgets,
# Gui or Multimedia header. Run as a test so that a slip fails CI, not a review.
file(STRINGS ${LISTA} fuentes)
set(malos "")
foreach(f ${fuentes})
    if(NOT EXISTS ${f})
        continue()
    endif()
    file(STRINGS ${f} lineas REGEX "#include <(Qt(Widgets|Gui|Multimedia)/|Q(Widget|MessageBox|FileDialog|Dialog|MainWindow|Application|GuiApplication|PushButton|LineEdit|Label|ComboBox|MediaPlayer|AudioOutput|DesktopServices|Color|Palette|Font)>)")
    if(lineas)
        list(APPEND malos "${f}")
    endif()
endforeach()
if(malos)
    message(FATAL_ERROR "Archivos de la lógica que incluyen ventanas: ${malos}")
endif()
message(STATUS "La lógica no incluye ventanas.")
