#include "CorvaleKit/reports/ReportStrings.h"

namespace corvale {

ReportStrings ReportStrings::spanish() {
    return {
        .title = "Informe de Corvale",
        .summary = "Resumen",
        .changes = "Cambios",
        .cellChanges = "Celdas modificadas",
        .status = "Estado",
        .key = "Clave",
        .column = "Columna",
        .before = "Antes",
        .after = "Después",
        .difference = "Diferencia",
        .added = "Añadida",
        .removed = "Eliminada",
        .changed = "Modificada",
        .same = "Sin cambios",
        .rowsAdded = "Filas añadidas",
        .rowsRemoved = "Filas eliminadas",
        .rowsChanged = "Filas modificadas",
        .rowsSame = "Filas sin cambios",
        .cellsChanged = "Celdas modificadas",
        .typeOnlyCells = "Celdas que solo difieren en formato numérico, mayúsculas o espacios",
        .columnsAdded = "Columnas añadidas",
        .columnsRemoved = "Columnas eliminadas",
        .matchedBy = "Filas emparejadas por",
        .rowOrder = "orden de las filas",
        .ignored = "Se ignora",
        .duplicateKeys = "Claves duplicadas",
        .rows = "Filas",
        .beforeFile = "Archivo anterior",
        .afterFile = "Archivo posterior",
        .rowBefore = "Fila (antes)",
        .rowAfter = "Fila (después)",
        .generated = "Creado con Corvale en este Mac. No se ha subido nada a Internet.",
        .noDifferences = "No hay diferencias.",
        .kindValue = "Valor",
        .kindNumberFormat = "Solo formato numérico",
        .kindLetterCase = "Solo mayúsculas y minúsculas",
        .kindWhitespace = "Solo espacios",
        .optionCase = "mayúsculas y minúsculas",
        .optionWhitespace = "espacios sobrantes",
        .optionNumbers = "formato de los números",
        .optionColumnOrder = "orden de las columnas",
        .columnOrderChanged = "Ha cambiado el orden de las columnas",
        .yes = "Sí",
        .blankKey = "(clave vacía)",
    };
}

}  // namespace corvale
