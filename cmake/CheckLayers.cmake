# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
# Fails when a core source file includes a header from a folder its layer may not use.
# Called by the build with DEFINITIONS (a file that sets ROOT, LAYERS, LAYER_<name>_ALLOWED and
# LAYER_<name>_FILES, relative to ROOT) and STAMP, touched when every include is allowed.
include("${DEFINITIONS}")
set(layers ${LAYERS})
set(problems "")
foreach(layer IN LISTS layers)
  set(allowed ${LAYER_${layer}_ALLOWED})
  set(files ${LAYER_${layer}_FILES})
  foreach(file IN LISTS files)
    file(STRINGS "${ROOT}/${file}" includes REGEX "^[ \t]*#[ \t]*include[ \t]*\"[^\"/]+/")
    foreach(line IN LISTS includes)
      string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*\"([^\"/]+)/.*$" "\\1" folder "${line}")
      list(FIND allowed "${folder}" found)
      list(JOIN allowed ", " allowed_text)
      if(found EQUAL -1)
        string(STRIP "${line}" line)
        string(APPEND problems "\n  ${file}: ${line} (the ${layer} layer may use only: ${allowed_text})")
      endif()
    endforeach()
  endforeach()
endforeach()
if(problems)
  message(FATAL_ERROR "A core layer includes a layer above it:${problems}")
endif()
file(TOUCH "${STAMP}")
