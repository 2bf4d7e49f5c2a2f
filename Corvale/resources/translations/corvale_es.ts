<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>AddressOpener</name>
    <message>
        <source>Copy Address</source>
        <translation>Copiar dirección</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Couldn’t open a mail program</source>
        <translation>No se ha podido abrir un programa de correo</translation>
    </message>
    <message>
        <source>Couldn’t open a browser</source>
        <translation>No se ha podido abrir un navegador</translation>
    </message>
    <message>
        <source>The address to write to is %1.</source>
        <translation>La dirección a la que escribir es %1.</translation>
    </message>
    <message>
        <source>The address of the page is %1.</source>
        <translation>La dirección de la página es %1.</translation>
    </message>
</context>
<context>
    <name>FailureTexts</name>
    <message>
        <source>“%1” doesn’t look like a CSV or Excel file.</source>
        <translation>«%1» no parece un archivo CSV ni de Excel.</translation>
    </message>
    <message>
        <source>That sheet is empty. Pick another sheet from the menu under the file name.</source>
        <translation>Esa hoja está vacía. Elige otra en el menú que hay debajo del nombre del archivo.</translation>
    </message>
    <message>
        <source>“%1” is an older Excel file (.xls). Open it in Excel or Numbers, save it as .xlsx or CSV, then open that here.</source>
        <translation>«%1» es un archivo de Excel antiguo (.xls). Ábrelo en Excel o Numbers, guárdalo como .xlsx o CSV y abre aquí ese archivo.</translation>
    </message>
    <message>
        <source>“%1” is a Numbers file. In Numbers, choose File › Export To › Excel… (or CSV…), then open the exported file here.</source>
        <translation>«%1» es un archivo de Numbers. En Numbers, elige Archivo › Exportar a › Excel… (o CSV…) y abre aquí el archivo exportado.</translation>
    </message>
    <message>
        <source>“%1” is empty.</source>
        <translation>«%1» está vacío.</translation>
    </message>
    <message>
        <source>There isn’t enough memory to open this file.</source>
        <translation>No hay memoria suficiente para abrir este archivo.</translation>
    </message>
    <message>
        <source>The report couldn’t be saved: %1</source>
        <translation>No se ha podido guardar el informe: %1</translation>
    </message>
    <message>
        <source>There isn’t enough memory.</source>
        <translation>No hay memoria suficiente.</translation>
    </message>
    <message>
        <source>There isn’t enough memory to compare these files.</source>
        <translation>No hay memoria suficiente para comparar estos archivos.</translation>
    </message>
</context>
<context>
    <name>LocalFile</name>
    <message>
        <source>“%1” couldn’t be opened: %2</source>
        <translation>No se ha podido abrir «%1»: %2</translation>
    </message>
    <message>
        <source>“%1” couldn’t be read: %2</source>
        <translation>No se ha podido leer «%1»: %2</translation>
    </message>
    <message>
        <source>“%1” changed while it was being read. Try again.</source>
        <translation>«%1» ha cambiado durante la lectura. Inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>“%1” isn’t on this computer.</source>
        <translation>«%1» no está en este equipo.</translation>
    </message>
    <message>
        <source>“%1” is a folder.</source>
        <translation>«%1» es una carpeta.</translation>
    </message>
    <message>
        <source>“%1” isn’t a regular file.</source>
        <translation>«%1» no es un archivo normal.</translation>
    </message>
    <message>
        <source>“%1” is write-protected.</source>
        <translation>«%1» está protegido contra escritura.</translation>
    </message>
</context>
<context>
    <name>MacMenuBaseline</name>
    <message>
        <source>Close Window</source>
        <translation>Cerrar ventana</translation>
    </message>
    <message>
        <source>%1 Help</source>
        <translation>Ayuda de %1</translation>
    </message>
</context>
<context>
    <name>QtPlatform</name>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Spreadsheets (%1)</source>
        <translation>Hojas de cálculo (%1)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Todos los archivos (*)</translation>
    </message>
    <message>
        <source>Export Report</source>
        <translation>Exportar informe</translation>
    </message>
    <message>
        <source>“%1” exists already. Do you want to replace it?</source>
        <translation>«%1» ya existe. ¿Desea reemplazarlo?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Reemplazar</translation>
    </message>
</context>
<context>
    <name>ReportExport</name>
    <message>
        <source>%1 changes</source>
        <comment>name of a report; %1 is a file&apos;s name</comment>
        <translation>Cambios en %1</translation>
    </message>
</context>
<context>
    <name>Topic</name>
    <message>
        <source>Getting started</source>
        <translation>Primeros pasos</translation>
    </message>
    <message>
        <source>Open the older file on the left (Before) and the newer one on the right (After): click Choose…, drop the files on the window, or choose File › Open Before… (⌘O). Select two files at once to fill both sides.</source>
        <translation>Abre el archivo anterior a la izquierda (Antes) y el más reciente a la derecha (Después): haz clic en Elegir…, suelta los archivos en la ventana o elige Archivo › Abrir el archivo de Antes… (⌘O). Selecciona dos archivos a la vez para llenar ambos lados.</translation>
    </message>
    <message>
        <source>Corvale reads Excel workbooks (.xlsx), CSV and TSV. For a workbook with several sheets, pick the sheet from the menu under its name. The first row with something in it is the header row.</source>
        <translation>Corvale lee libros de Excel (.xlsx), CSV y TSV. Si un libro tiene varias hojas, elige la hoja en el menú que hay debajo de su nombre. La primera fila con contenido es la de encabezados.</translation>
    </message>
    <message>
        <source>Numbers files: in Numbers, choose File › Export To › Excel… (or CSV…) and open the exported file. Older .xls files: save them as .xlsx first.</source>
        <translation>Archivos de Numbers: en Numbers, elige Archivo › Exportar a › Excel… (o CSV…) y abre el archivo exportado. Archivos .xls antiguos: guárdalos antes como .xlsx.</translation>
    </message>
    <message>
        <source>Matching rows</source>
        <translation>Emparejar filas</translation>
    </message>
    <message>
        <source>A key column is a column that names each row once, such as an order number, SKU, employee ID or email. Rows with the same key are compared with each other, wherever they are in the file, so sorting or inserting rows doesn&apos;t matter.</source>
        <translation>Una columna clave identifica cada fila una sola vez, como un número de pedido, una referencia, un código de empleado o un correo electrónico. Las filas con la misma clave se comparan entre sí, estén donde estén en el archivo, así que da igual ordenar o insertar filas.</translation>
    </message>
    <message>
        <source>Corvale suggests the column that&apos;s filled in on every row, unique, and shared by both files. Pick another one under Match rows by.</source>
        <translation>Corvale sugiere la columna que está rellena en todas las filas, no se repite y existe en ambos archivos. Elige otra en Emparejar filas por.</translation>
    </message>
    <message>
        <source>Duplicate keys: when a key is on more than one row, the repeats are paired in order (first with first) and listed under the counts. Rows with an empty key are compared the same way.</source>
        <translation>Claves duplicadas: cuando una clave está en más de una fila, las repeticiones se emparejan en orden (la primera con la primera) y se enumeran debajo de los recuentos. Las filas con la clave vacía se comparan del mismo modo.</translation>
    </message>
    <message>
        <source>No key column? Choose Row order: Corvale lines up identical rows and compares the ones in between, so one inserted row doesn&apos;t mark everything after it as changed.</source>
        <translation>¿No hay columna clave? Elige Orden de las filas: Corvale alinea las filas idénticas y compara las que quedan entre ellas, de modo que insertar una fila no hace que se marque como modificado todo lo que viene después.</translation>
    </message>
    <message>
        <source>What counts as a change</source>
        <translation>Qué cuenta como cambio</translation>
    </message>
    <message>
        <source>Ignore case: Apple and APPLE match. Ignore extra spaces: spaces at the ends and doubled spaces don&apos;t count. Ignore number formatting: 1,250.00, $1250 and 1250 match, and so do 50% and 0.5, and 007 and 7. Ignore column order: columns are matched by name wherever they are; turn it off to compare column A with A, B with B.</source>
        <translation>Ignorar mayúsculas y minúsculas: Manzana y MANZANA coinciden. Ignorar espacios sobrantes: los espacios de los extremos y los dobles no cuentan. Ignorar formato numérico: 1.250,00, 1250 € y 1250 coinciden, y también 50% y 0,5, y 007 y 7. Ignorar orden de las columnas: las columnas se emparejan por nombre, estén donde estén; desactívalo para comparar la columna A con la A y la B con la B.</translation>
    </message>
    <message>
        <source>Ignore Columns leaves columns such as Last updated out of the comparison.</source>
        <translation>Ignorar columnas deja fuera de la comparación columnas como Última actualización.</translation>
    </message>
    <message>
        <source>Cells that differ only in number format, case or spacing are marked in blue and counted separately, so you can see them before deciding to ignore them.</source>
        <translation>Las celdas que solo difieren en formato numérico, mayúsculas o espacios se marcan en azul y se cuentan aparte, para poder verlas antes de decidir si ignorarlas.</translation>
    </message>
    <message>
        <source>Reading the results</source>
        <translation>Leer los resultados</translation>
    </message>
    <message>
        <source>The counts at the top are filters: click Added, Removed or Changed to list only those rows; click again to go back to all changes. Unchanged shows every row.</source>
        <translation>Los recuentos de la parte superior son filtros: haz clic en Añadidas, Eliminadas o Modificadas para ver solo esas filas; haz clic otra vez para volver a todos los cambios. Sin cambios muestra todas las filas.</translation>
    </message>
    <message>
        <source>Unified view: one line per row, with each changed cell showing the old value struck through and the new one in bold. Side by side: the Before cells on the left and the After cells on the right.</source>
        <translation>Vista unificada: una línea por fila; cada celda modificada muestra el valor antiguo tachado y el nuevo en negrita. En paralelo: las celdas de Antes a la izquierda y las de Después a la derecha.</translation>
    </message>
    <message>
        <source>Show (in the toolbar) picks the rows, the column menu lists only rows with a change in one column, and Search finds words in any cell. Click a row, or use the arrow keys, to see all of its cells in Row Details.</source>
        <translation>Mostrar (en la barra de herramientas) elige las filas, el menú de columnas deja solo las filas con un cambio en una columna y Buscar encuentra palabras en cualquier celda. Haz clic en una fila, o usa las teclas de flecha, para ver todas sus celdas en Detalles de la fila.</translation>
    </message>
    <message>
        <source>Comparisons run in the background with a progress bar; 100,000-row files take a few seconds. Compare › Compare Again (⌘R) reads both files again after you edit them.</source>
        <translation>Las comparaciones se hacen en segundo plano con una barra de progreso; los archivos de 100.000 filas tardan unos segundos. Comparar › Comparar de nuevo (⌘R) vuelve a leer ambos archivos después de editarlos.</translation>
    </message>
    <message>
        <source>Reports</source>
        <translation>Informes</translation>
    </message>
    <message>
        <source>File › Export Excel Report (⌘E) saves a workbook with three sheets: Summary, Changes (added rows green, removed rows red, changed cells yellow) and Cell changes (every changed cell, before and after).</source>
        <translation>Archivo › Exportar informe de Excel (⌘E) guarda un libro con tres hojas: Resumen, Cambios (filas añadidas en verde, eliminadas en rojo y celdas modificadas en amarillo) y Celdas modificadas (cada celda modificada, antes y después).</translation>
    </message>
    <message>
        <source>File › Export HTML Report (⇧⌘E) saves one web page you can email or print. It has no scripts and loads nothing from the internet.</source>
        <translation>Archivo › Exportar informe HTML (⇧⌘E) guarda una página web que se puede enviar por correo o imprimir. No contiene scripts ni carga nada de Internet.</translation>
    </message>
    <message>
        <source>Your data and privacy</source>
        <translation>Tus datos y tu privacidad</translation>
    </message>
    <message>
        <source>Corvale reads your spreadsheets on this Mac and keeps nothing from them after you quit. There&apos;s no account and no tracking, and your files are never uploaded.</source>
        <translation>Corvale lee las hojas de cálculo en este equipo y no conserva nada de ellas al salir. No hay cuentas ni seguimiento, y los archivos nunca se suben a Internet.</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Soporte</translation>
    </message>
    <message>
        <source>Something is unclear, wrong or missing? Write to %1: a person reads every message. Please do not attach your spreadsheets; say what you saw and what you expected.</source>
        <translation>¿Hay algo confuso, algo incorrecto o algo que falte? Escribe a %1: una persona lee todos los mensajes. No adjuntes tus hojas de cálculo; cuenta qué has visto y qué esperabas.</translation>
    </message>
</context>
<context>
    <name>UpdateAlerts</name>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Check for updates automatically?</source>
        <translation>¿Buscar actualizaciones automáticamente?</translation>
    </message>
    <message>
        <source>About once a day, Corvale can ask whether there is a new version. Nothing about you or your files is sent. You can always check yourself from the Help menu.</source>
        <translation>Aproximadamente una vez al día, Corvale puede preguntar si hay una versión nueva. No se envía nada sobre ti ni sobre tus archivos. También puedes buscarla cuando quieras desde el menú Ayuda.</translation>
    </message>
    <message>
        <source>Check Automatically</source>
        <translation>Buscar automáticamente</translation>
    </message>
    <message>
        <source>Don’t Check</source>
        <translation>No buscar</translation>
    </message>
    <message>
        <source>Version %1 is ready to download from our web page.</source>
        <translation>La versión %1 se puede descargar de nuestra página web.</translation>
    </message>
    <message>
        <source>A new version of Corvale is available</source>
        <translation>Hay una versión nueva de Corvale</translation>
    </message>
    <message>
        <source>Open Download Page</source>
        <translation>Abrir página de descarga</translation>
    </message>
    <message>
        <source>Release Notes</source>
        <translation>Notas de la versión</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Ahora no</translation>
    </message>
</context>
<context>
    <name>UpdateTexts</name>
    <message>
        <source>You’re up to date</source>
        <translation>Está todo al día</translation>
    </message>
    <message>
        <source>%1 %2 is the newest version. %1 checks for updates on its own and will let you know when there’s a new one.</source>
        <translation>%1 %2 es la versión más reciente. %1 busca actualizaciones por su cuenta y avisará cuando haya una nueva.</translation>
    </message>
    <message>
        <source>Couldn’t check for updates</source>
        <translation>No se han podido buscar actualizaciones</translation>
    </message>
    <message>
        <source>Check your internet connection and try again. %1 also checks on its own about once a day.</source>
        <translation>Comprueba la conexión a Internet e inténtalo de nuevo. %1 también las busca por su cuenta aproximadamente una vez al día.</translation>
    </message>
</context>
<context>
    <name>Wording</name>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>%1 row</source>
        <translation>%1 fila</translation>
    </message>
    <message>
        <source>%1 rows</source>
        <translation>%1 filas</translation>
    </message>
    <message>
        <source>%1 column</source>
        <translation>%1 columna</translation>
    </message>
    <message>
        <source>%1 columns</source>
        <translation>%1 columnas</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Antes</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Después</translation>
    </message>
    <message>
        <source>All Rows</source>
        <translation>Todas las filas</translation>
    </message>
    <message>
        <source>Only Changes</source>
        <translation>Solo los cambios</translation>
    </message>
    <message>
        <source>Added</source>
        <translation>Añadidas</translation>
    </message>
    <message>
        <source>Removed</source>
        <translation>Eliminadas</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Modificadas</translation>
    </message>
    <message>
        <source>Numbers: automatic</source>
        <translation>Números: automático</translation>
    </message>
    <message>
        <source>Numbers like 1,234.56</source>
        <translation>Números como 1,234.56</translation>
    </message>
    <message>
        <source>Numbers like 1.234,56</source>
        <translation>Números como 1.234,56</translation>
    </message>
</context>
<context>
    <name>corvale::AboutPanel</name>
    <message>
        <source>About Corvale</source>
        <translation>Acerca de Corvale</translation>
    </message>
    <message>
        <source>Corvale</source>
        <translation>Corvale</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Versión %1</translation>
    </message>
    <message>
        <source>Copy details for support</source>
        <translation>Copiar detalles para soporte</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Compare two spreadsheets by key column and see every changed row and cell</source>
        <translation>Compara dos hojas de cálculo por columna clave y muestra cada fila y celda que ha cambiado</translation>
    </message>
    <message>
        <source>Your spreadsheets stay on this Mac. Questions? Write to %1</source>
        <translation>Las hojas de cálculo se quedan en este equipo. ¿Preguntas? Escribe a %1</translation>
    </message>
    <message>
        <source>Made with these libraries:</source>
        <translation>Hecho con estas bibliotecas:</translation>
    </message>
    <message>
        <source>Licenses</source>
        <translation>Licencias</translation>
    </message>
</context>
<context>
    <name>corvale::AppDelegate</name>
    <message>
        <source>A file name is empty and was passed over.</source>
        <translation>Un nombre de archivo está vacío y se ha omitido.</translation>
    </message>
    <message>
        <source>Two files can be compared at a time; “%1” was not opened.</source>
        <translation>Solo se pueden comparar dos archivos a la vez; «%1» no se ha abierto.</translation>
    </message>
</context>
<context>
    <name>corvale::AppModel</name>
    <message>
        <source>It would replace a file that is being compared.</source>
        <translation>Sustituiría un archivo que se está comparando.</translation>
    </message>
    <message>
        <source>Choose the older file (Before), or select two files to fill both sides.</source>
        <translation>Elige el archivo anterior (Antes) o selecciona dos archivos para llenar ambos lados.</translation>
    </message>
    <message>
        <source>Choose the newer file (After).</source>
        <translation>Elige el archivo más reciente (Después).</translation>
    </message>
</context>
<context>
    <name>corvale::ChipLabel</name>
    <message>
        <source>Added</source>
        <translation>Añadidas</translation>
    </message>
    <message>
        <source>Removed</source>
        <translation>Eliminadas</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Modificadas</translation>
    </message>
    <message>
        <source>Unchanged</source>
        <translation>Sin cambios</translation>
    </message>
    <message>
        <source>Show every change again</source>
        <translation>Mostrar de nuevo todos los cambios</translation>
    </message>
    <message>
        <source>Show every row, changed or not</source>
        <translation>Mostrar todas las filas, con cambios o sin ellos</translation>
    </message>
    <message>
        <source>Show only these rows</source>
        <translation>Mostrar solo estas filas</translation>
    </message>
</context>
<context>
    <name>corvale::DiffGrid</name>
    <message>
        <source>Changes</source>
        <translation>Cambios</translation>
    </message>
    <message>
        <source>Show the changed cell</source>
        <translation>Mostrar la celda modificada</translation>
    </message>
    <message>
        <source>Started again from the first change</source>
        <translation>Se ha vuelto al primer cambio</translation>
    </message>
    <message>
        <source>Started again from the last change</source>
        <translation>Se ha vuelto al último cambio</translation>
    </message>
    <message>
        <source>No changed cells in this list</source>
        <translation>No hay celdas modificadas en esta lista</translation>
    </message>
</context>
<context>
    <name>corvale::DuplicateKeysModel</name>
    <message>
        <source>(blank)</source>
        <translation>(vacía)</translation>
    </message>
    <message>
        <source>rows %1</source>
        <translation>filas %1</translation>
    </message>
</context>
<context>
    <name>corvale::DuplicateList</name>
    <message>
        <source>Duplicate keys</source>
        <translation>Claves duplicadas</translation>
    </message>
    <message>
        <source>These keys are on more than one row. Corvale pairs them in order: the first with the first, and so on.</source>
        <translation>Estas claves están en más de una fila. Corvale las empareja en orden: la primera con la primera, y así sucesivamente.</translation>
    </message>
</context>
<context>
    <name>corvale::EmptyState</name>
    <message>
        <source>Try the Sample</source>
        <translation>Probar el ejemplo</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Comparar</translation>
    </message>
    <message>
        <source>Open the older file on the left and the newer one on the right (Excel .xlsx, CSV or TSV), or drop them on the window. Corvale suggests a key column and shows every added, removed and changed row.</source>
        <translation>Abre el archivo anterior a la izquierda y el más reciente a la derecha (Excel .xlsx, CSV o TSV), o suéltalos en la ventana. Corvale sugiere una columna clave y muestra cada fila añadida, eliminada o modificada.</translation>
    </message>
    <message>
        <source>Pick two spreadsheets to compare</source>
        <translation>Elige dos hojas de cálculo para comparar</translation>
    </message>
    <message>
        <source>Choose the older file (Before).</source>
        <translation>Elige el archivo anterior (Antes).</translation>
    </message>
    <message>
        <source>Choose the newer file (After).</source>
        <translation>Elige el archivo más reciente (Después).</translation>
    </message>
    <message>
        <source>Not compared yet</source>
        <translation>Aún sin comparar</translation>
    </message>
    <message>
        <source>Choose Files…</source>
        <translation>Elegir archivos…</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Elegir…</translation>
    </message>
</context>
<context>
    <name>corvale::FileCard</name>
    <message>
        <source>Drop a file here</source>
        <translation>Suelta un archivo aquí</translation>
    </message>
    <message>
        <source>Excel (.xlsx), CSV or TSV</source>
        <translation>Excel (.xlsx), CSV o TSV</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Elegir…</translation>
    </message>
    <message>
        <source>Choose the older file</source>
        <translation>Elegir el archivo anterior</translation>
    </message>
    <message>
        <source>Choose the newer file</source>
        <translation>Elegir el archivo más reciente</translation>
    </message>
    <message>
        <source>Opening…</source>
        <translation>Abriendo…</translation>
    </message>
    <message>
        <source>The sheet to compare</source>
        <translation>La hoja que se compara</translation>
    </message>
    <message>
        <source>Close the Before file</source>
        <translation>Cerrar el archivo de Antes</translation>
    </message>
    <message>
        <source>Close the After file</source>
        <translation>Cerrar el archivo de Después</translation>
    </message>
    <message>
        <source>Close this file</source>
        <translation>Cerrar este archivo</translation>
    </message>
    <message>
        <source>Before file</source>
        <translation>Archivo de Antes</translation>
    </message>
    <message>
        <source>After file</source>
        <translation>Archivo de Después</translation>
    </message>
    <message>
        <source>Sheet: </source>
        <translation>Hoja: </translation>
    </message>
</context>
<context>
    <name>corvale::FilesBar</name>
    <message>
        <source>Swap Before and After</source>
        <translation>Intercambiar Antes y Después</translation>
    </message>
</context>
<context>
    <name>corvale::GeneralSettings</name>
    <message>
        <source>Comparing</source>
        <translation>Comparación</translation>
    </message>
    <message>
        <source>Ignore case</source>
        <translation>Ignorar mayúsculas y minúsculas</translation>
    </message>
    <message>
        <source>Ignore extra spaces</source>
        <translation>Ignorar espacios sobrantes</translation>
    </message>
    <message>
        <source>Ignore number formatting</source>
        <translation>Ignorar formato numérico</translation>
    </message>
    <message>
        <source>Ignore column order (match columns by name)</source>
        <translation>Ignorar orden de las columnas (emparejarlas por nombre)</translation>
    </message>
    <message>
        <source>Numbers</source>
        <translation>Números</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Vista</translation>
    </message>
    <message>
        <source>Reports</source>
        <translation>Informes</translation>
    </message>
    <message>
        <source>Include unchanged rows in Excel reports</source>
        <translation>Incluir las filas sin cambios en los informes de Excel</translation>
    </message>
    <message>
        <source>Corvale reads your files on this Mac and writes reports only where you save them. Nothing is uploaded.</source>
        <translation>Corvale lee los archivos en este equipo y escribe informes solo donde los guardes. No se sube nada a Internet.</translation>
    </message>
    <message>
        <source>Getting started</source>
        <translation>Primeros pasos</translation>
    </message>
    <message>
        <source>Show the Welcome Screen Again</source>
        <translation>Mostrar de nuevo la bienvenida</translation>
    </message>
</context>
<context>
    <name>corvale::GridHeader</name>
    <message>
        <source>(ignored)</source>
        <translation>(ignorada)</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>Fila</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Estado</translation>
    </message>
</context>
<context>
    <name>corvale::GridPlaceholder</name>
    <message>
        <source>No rows match</source>
        <translation>Ninguna fila coincide</translation>
    </message>
    <message>
        <source>No differences</source>
        <translation>No hay diferencias</translation>
    </message>
    <message>
        <source>No row selected</source>
        <translation>Ninguna fila seleccionada</translation>
    </message>
    <message>
        <source>Try another filter, column or search.</source>
        <translation>Prueba con otro filtro, otra columna u otra búsqueda.</translation>
    </message>
    <message>
        <source>Every row and cell matches, with the options above.</source>
        <translation>Con las opciones de arriba, todas las filas y celdas coinciden.</translation>
    </message>
    <message>
        <source>Click a row (or use the arrow keys) to see every cell, before and after.</source>
        <translation>Haz clic en una fila (o usa las teclas de flecha) para ver todas las celdas, antes y después.</translation>
    </message>
</context>
<context>
    <name>corvale::HeaderRowMenu</name>
    <message>
        <source>Choose the row with the column names (when the file has a title above its table)</source>
        <translation>Elegir la fila con los nombres de las columnas (si el archivo tiene un título encima de la tabla)</translation>
    </message>
    <message>
        <source>headers in row %1</source>
        <translation>encabezados en la fila %1</translation>
    </message>
    <message>
        <source>Header row of the Before file</source>
        <translation>Fila de encabezados del archivo de Antes</translation>
    </message>
    <message>
        <source>Header row of the After file</source>
        <translation>Fila de encabezados del archivo de Después</translation>
    </message>
    <message>
        <source>Column names are in</source>
        <translation>Los nombres de las columnas están en</translation>
    </message>
    <message>
        <source>Automatic (row %1)</source>
        <translation>Automática (fila %1)</translation>
    </message>
    <message>
        <source>Row %1: %2</source>
        <translation>Fila %1: %2</translation>
    </message>
</context>
<context>
    <name>corvale::HelpView</name>
    <message>
        <source>No topic has these words.</source>
        <translation>Ningún tema contiene estas palabras.</translation>
    </message>
    <message>
        <source>Email Support</source>
        <translation>Escribir a soporte</translation>
    </message>
    <message>
        <source>Corvale Help</source>
        <translation>Ayuda de Corvale</translation>
    </message>
    <message>
        <source>Search help</source>
        <translation>Buscar en la ayuda</translation>
    </message>
    <message>
        <source>Topics</source>
        <translation>Temas</translation>
    </message>
</context>
<context>
    <name>corvale::InspectorHead</name>
    <message>
        <source>Changes</source>
        <translation>Cambios</translation>
    </message>
</context>
<context>
    <name>corvale::MainMenus</name>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>Open Before…</source>
        <translation>Abrir el archivo de Antes…</translation>
    </message>
    <message>
        <source>Open After…</source>
        <translation>Abrir el archivo de Después…</translation>
    </message>
    <message>
        <source>Open the Sample</source>
        <translation>Abrir el ejemplo</translation>
    </message>
    <message>
        <source>Export Excel Report…</source>
        <translation>Exportar informe de Excel…</translation>
    </message>
    <message>
        <source>Export HTML Report…</source>
        <translation>Exportar informe HTML…</translation>
    </message>
    <message>
        <source>Quit Corvale</source>
        <translation>Salir de Corvale</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Editar</translation>
    </message>
    <message>
        <source>Search Rows</source>
        <translation>Buscar filas</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Ajustes…</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Comparar</translation>
    </message>
    <message>
        <source>Compare Again</source>
        <translation>Comparar de nuevo</translation>
    </message>
    <message>
        <source>Swap Before and After</source>
        <translation>Intercambiar Antes y Después</translation>
    </message>
    <message>
        <source>Unified View</source>
        <translation>Vista unificada</translation>
    </message>
    <message>
        <source>Side by Side View</source>
        <translation>Vista en paralelo</translation>
    </message>
    <message>
        <source>Show Only Changes</source>
        <translation>Mostrar solo los cambios</translation>
    </message>
    <message>
        <source>Show All Rows</source>
        <translation>Mostrar todas las filas</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Buscar actualizaciones…</translation>
    </message>
    <message>
        <source>About Corvale</source>
        <translation>Acerca de Corvale</translation>
    </message>
    <message>
        <source>Hide Row Details</source>
        <translation>Ocultar detalles de la fila</translation>
    </message>
    <message>
        <source>Show Row Details</source>
        <translation>Mostrar detalles de la fila</translation>
    </message>
</context>
<context>
    <name>corvale::MainToolbar</name>
    <message>
        <source>View</source>
        <translation>Vista</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Mostrar</translation>
    </message>
    <message>
        <source>Which rows the list shows</source>
        <translation>Qué filas muestra la lista</translation>
    </message>
    <message>
        <source>Only rows with a change in one column</source>
        <translation>Solo filas con un cambio en una columna</translation>
    </message>
    <message>
        <source>Export Report</source>
        <translation>Exportar informe</translation>
    </message>
    <message>
        <source>Save the changes as an Excel workbook with highlighted cells, or as a web page to share</source>
        <translation>Guardar los cambios como libro de Excel con celdas resaltadas o como página web para compartir</translation>
    </message>
    <message>
        <source>Row Details</source>
        <translation>Detalles de la fila</translation>
    </message>
    <message>
        <source>Show or hide the selected row’s details</source>
        <translation>Mostrar u ocultar los detalles de la fila seleccionada</translation>
    </message>
    <message>
        <source>Show: %1</source>
        <translation>Mostrar: %1</translation>
    </message>
    <message>
        <source>Column: %1</source>
        <translation>Columna: %1</translation>
    </message>
    <message>
        <source>Any Column</source>
        <translation>Cualquier columna</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Excel Report (.xlsx)…</source>
        <translation>Informe de Excel (.xlsx)…</translation>
    </message>
    <message>
        <source>HTML Report…</source>
        <translation>Informe HTML…</translation>
    </message>
</context>
<context>
    <name>corvale::MainWindow</name>
    <message>
        <source>Corvale</source>
        <translation>Corvale</translation>
    </message>
</context>
<context>
    <name>corvale::MatchBar</name>
    <message>
        <source>Match rows by</source>
        <translation>Emparejar filas por</translation>
    </message>
    <message>
        <source>Rows with the same value in this column are compared with each other. Pick Row order for files without an ID column.</source>
        <translation>Las filas con el mismo valor en esta columna se comparan entre sí. Elige Orden de las filas si los archivos no tienen una columna identificadora.</translation>
    </message>
    <message>
        <source>How the files write numbers: 1,234.56 or 1.234,56. Automatic follows the files (else this Mac’s region).</source>
        <translation>Cómo escriben los números los archivos: 1,234.56 o 1.234,56. Automático sigue a los archivos (si no, la región de este equipo).</translation>
    </message>
    <message>
        <source>Leave columns such as “Last updated” out of the comparison</source>
        <translation>Dejar fuera de la comparación columnas como «Última actualización»</translation>
    </message>
    <message>
        <source>Matching</source>
        <translation>Emparejamiento</translation>
    </message>
    <message>
        <source>Match rows by: %1</source>
        <translation>Emparejar filas por: %1</translation>
    </message>
    <message>
        <source>Ignore</source>
        <translation>Ignorar</translation>
    </message>
    <message>
        <source>Ignoring %1 of 4</source>
        <translation>Ignorando %1 de 4</translation>
    </message>
    <message>
        <source>Ignore Columns</source>
        <translation>Ignorar columnas</translation>
    </message>
    <message>
        <source>Ignoring %1 columns</source>
        <translation>Columnas ignoradas: %1</translation>
    </message>
    <message>
        <source>%1 (suggested)</source>
        <translation>%1 (sugerida)</translation>
    </message>
    <message>
        <source>Row order (no key column)</source>
        <translation>Orden de las filas (sin columna clave)</translation>
    </message>
    <message>
        <source>Automatic (%1)</source>
        <translation>Automático (%1)</translation>
    </message>
    <message>
        <source>What doesn’t count as a change</source>
        <translation>Qué no cuenta como cambio</translation>
    </message>
    <message>
        <source>Ignore case</source>
        <translation>Ignorar mayúsculas y minúsculas</translation>
    </message>
    <message>
        <source>Ignore extra spaces</source>
        <translation>Ignorar espacios sobrantes</translation>
    </message>
    <message>
        <source>Ignore number formatting</source>
        <translation>Ignorar formato numérico</translation>
    </message>
    <message>
        <source>1,250.00, $1250 and 1250 count as the same; so do 50% and 0.5, and 007 and 7.</source>
        <translation>1.250,00, 1250 € y 1250 cuentan como iguales; también 50% y 0,5, y 007 y 7.</translation>
    </message>
    <message>
        <source>Ignore column order</source>
        <translation>Ignorar orden de las columnas</translation>
    </message>
    <message>
        <source>On: columns are matched by their names wherever they are. Off: by position (A with A, B with B).</source>
        <translation>Activado: las columnas se emparejan por sus nombres, estén donde estén. Desactivado: por posición (A con A, B con B).</translation>
    </message>
    <message>
        <source>Compare Every Column</source>
        <translation>Comparar todas las columnas</translation>
    </message>
</context>
<context>
    <name>corvale::OverviewStrip</name>
    <message>
        <source>Overview of all changes</source>
        <translation>Vista general de todos los cambios</translation>
    </message>
</context>
<context>
    <name>corvale::ProblemAlert</name>
    <message>
        <source>Something went wrong</source>
        <translation>Algo ha ido mal</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>corvale::ProgressOverlay</name>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Opening…</source>
        <translation>Abriendo…</translation>
    </message>
    <message>
        <source>Comparing…</source>
        <translation>Comparando…</translation>
    </message>
</context>
<context>
    <name>corvale::RowInspector</name>
    <message>
        <source>Row Details</source>
        <translation>Detalles de la fila</translation>
    </message>
</context>
<context>
    <name>corvale::RowTexts</name>
    <message>
        <source>Added</source>
        <translation>Añadida</translation>
    </message>
    <message>
        <source>Removed</source>
        <translation>Eliminada</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Modificada</translation>
    </message>
    <message>
        <source>Unchanged</source>
        <translation>Sin cambios</translation>
    </message>
    <message>
        <source>Before: </source>
        <translation>Antes: </translation>
    </message>
    <message>
        <source>After: </source>
        <translation>Después: </translation>
    </message>
    <message>
        <source>, </source>
        <translation>, </translation>
    </message>
    <message>
        <source>Row %1</source>
        <translation>Fila %1</translation>
    </message>
    <message>
        <source>%1: %2 to %3</source>
        <comment>a changed cell: column, old value, new value</comment>
        <translation>%1: de %2 a %3</translation>
    </message>
    <message>
        <source>and %1 more changes</source>
        <translation>y %1 más</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <comment>old and new value of a cell</comment>
        <translation>de %1 a %2</translation>
    </message>
    <message>
        <source>Before: row </source>
        <translation>Antes: fila </translation>
    </message>
    <message>
        <source>After: row </source>
        <translation>Después: fila </translation>
    </message>
    <message>
        <source>(blank key)</source>
        <translation>(clave vacía)</translation>
    </message>
    <message>
        <source>(empty)</source>
        <translation>(vacía)</translation>
    </message>
    <message>
        <source>(not in this file)</source>
        <translation>(no está en este archivo)</translation>
    </message>
    <message>
        <source>[%1 characters left out]</source>
        <translation>[%1 caracteres omitidos]</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Antes</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Después</translation>
    </message>
</context>
<context>
    <name>corvale::SearchField</name>
    <message>
        <source>Search rows</source>
        <translation>Buscar filas</translation>
    </message>
    <message>
        <source>Search every cell (⌘F)</source>
        <translation>Buscar en todas las celdas (⌘F)</translation>
    </message>
    <message>
        <source>Clear the search</source>
        <translation>Borrar la búsqueda</translation>
    </message>
</context>
<context>
    <name>corvale::SettingsView</name>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
</context>
<context>
    <name>corvale::SummaryStrip</name>
    <message>
        <source>The files match</source>
        <translation>Los archivos coinciden</translation>
    </message>
    <message>
        <source>Keys on more than one row: repeats are paired in order. Click to see them.</source>
        <translation>Claves en más de una fila: las repeticiones se emparejan en orden. Haz clic para verlas.</translation>
    </message>
    <message>
        <source>%1 cells</source>
        <translation>celdas: %1</translation>
    </message>
    <message>
        <source>%1 new columns</source>
        <translation>Columnas nuevas: %1</translation>
    </message>
    <message>
        <source>%1 columns removed</source>
        <translation>Columnas eliminadas: %1</translation>
    </message>
    <message>
        <source>Column order changed</source>
        <translation>Ha cambiado el orden de las columnas</translation>
    </message>
    <message>
        <source>%1 rows with an empty key</source>
        <translation>Filas con clave vacía: %1</translation>
    </message>
    <message>
        <source>%1 cells differ only in number format, case or spacing</source>
        <translation>Celdas que solo difieren en formato numérico, mayúsculas o espacios: %1</translation>
    </message>
    <message>
        <source>%1 duplicate keys</source>
        <translation>Claves duplicadas: %1</translation>
    </message>
    <message>
        <source>Results out of date</source>
        <translation>Resultados desactualizados</translation>
    </message>
    <message>
        <source>These are the results from before your last change. Click to compare again.</source>
        <translation>Son los resultados anteriores a su último cambio. Haga clic para comparar de nuevo.</translation>
    </message>
</context>
<context>
    <name>corvale::ViewPicker</name>
    <message>
        <source>Unified</source>
        <translation>Unificada</translation>
    </message>
    <message>
        <source>Side by side</source>
        <translation>En paralelo</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Vista</translation>
    </message>
    <message>
        <source>Unified: one row per difference, old and new values together. Side by side: Before and After next to each other.</source>
        <translation>Unificada: una fila por diferencia, con los valores antiguos y nuevos juntos. En paralelo: Antes y Después, uno junto al otro.</translation>
    </message>
</context>
<context>
    <name>corvale::WelcomeView</name>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>Try the Sample</source>
        <translation>Probar el ejemplo</translation>
    </message>
    <message>
        <source>Get Started</source>
        <translation>Empezar</translation>
    </message>
    <message>
        <source>Welcome to Corvale</source>
        <translation>Te damos la bienvenida a Corvale</translation>
    </message>
    <message>
        <source>Two files, one key</source>
        <translation>Dos archivos, una clave</translation>
    </message>
    <message>
        <source>Open the older and newer spreadsheet (.xlsx, CSV or TSV). Corvale suggests the column that identifies each row, like an ID or SKU.</source>
        <translation>Abre la hoja de cálculo anterior y la más reciente (.xlsx, CSV o TSV). Corvale sugiere la columna que identifica cada fila, como un código o una referencia.</translation>
    </message>
    <message>
        <source>Every change, highlighted</source>
        <translation>Cada cambio, resaltado</translation>
    </message>
    <message>
        <source>Added, removed and changed rows, with the changed cells marked. Ignore case, extra spaces, number formatting or column order.</source>
        <translation>Filas añadidas, eliminadas y modificadas, con las celdas modificadas marcadas. Se pueden ignorar las mayúsculas, los espacios sobrantes, el formato numérico o el orden de las columnas.</translation>
    </message>
    <message>
        <source>Private by design</source>
        <translation>Privacidad desde el diseño</translation>
    </message>
    <message>
        <source>Your files stay on this Mac. No account, no tracking, nothing uploaded.</source>
        <translation>Los archivos se quedan en este equipo. Sin cuentas, sin seguimiento y sin subir nada a Internet.</translation>
    </message>
</context>
</TS>
