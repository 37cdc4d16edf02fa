<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Versión %1</translation>
    </message>
    <message>
        <source>System: %1</source>
        <translation>Sistema: %1</translation>
    </message>
    <message>
        <source>License</source>
        <translation>Licencia</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Soporte</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlg</name>
    <message>
        <source>Add Sample Video</source>
        <translation>Añadir vídeo de muestra</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Advance Repair&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Use this option to repair severely damaged videos. &lt;/p&gt;&lt;p&gt;Click &amp;quot;Next&amp;quot; to add a &apos;sample video&apos; of the same format, shot using the same device.&lt;/p&gt;&lt;p&gt;The sample and the damaged video remain unchanged during repair process.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Reparación avanzada&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Use esta opción para reparar vídeos muy dañados. &lt;/p&gt;&lt;p&gt;Haga clic en &amp;quot;Siguiente&amp;quot; para añadir un «vídeo de muestra» del mismo formato, grabado con el mismo dispositivo.&lt;/p&gt;&lt;p&gt;El vídeo de muestra y el vídeo dañado no se modifican durante la reparación.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Siguiente</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>Más información</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlg</name>
    <message>
        <source>Yes</source>
        <translation>Sí</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>DownloadUpdate</name>
    <message>
        <source>Software Update</source>
        <translation>Actualización de software</translation>
    </message>
    <message>
        <source>Downloading Files</source>
        <translation>Descargando archivos</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>InsufficientDlg</name>
    <message>
        <source>Insufficient Space</source>
        <translation>Espacio insuficiente</translation>
    </message>
    <message>
        <source>Insufficient space at selected destination.
</source>
        <translation>Espacio insuficiente en el destino seleccionado.
</translation>
    </message>
    <message>
        <source>Click &apos;Browse&apos; to change destination .
</source>
        <translation>Haga clic en «Examinar» para cambiar el destino.
</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Examinar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>InsufficientSpaceDlg</name>
    <message>
        <source>Available Space: %1, Required Space: %2
</source>
        <translation>Espacio disponible: %1, espacio necesario: %2
</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Seleccionar carpeta</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>English</source>
        <translation>Inglés</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Alemán</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Francés</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italiano</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Español</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>Japonés</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>Chino</translation>
    </message>
    <message>
        <source>Korean</source>
        <translation>Coreano</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Neerlandés</translation>
    </message>
    <message>
        <source>Portuguese Brazil</source>
        <translation>Portugués (Brasil)</translation>
    </message>
    <message>
        <source>Hindi</source>
        <translation>Hindi</translation>
    </message>
</context>
<context>
    <name>MessageDlg</name>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>Messages</name>
    <message>
        <source>Exit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Halvern Videomend</source>
        <translation>Halvern Videomend</translation>
    </message>
    <message>
        <source>Halvern Videomend is already running.</source>
        <translation>Halvern Videomend ya se está ejecutando.</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Update</source>
        <translation>Actualizar</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>No hay actualizaciones disponibles.</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>no address of the update server is set</source>
        <translation>no se ha definido la dirección del servidor de actualizaciones</translation>
    </message>
    <message>
        <source>the folder %1 can&apos;t be used</source>
        <translation>no se puede usar la carpeta %1</translation>
    </message>
    <message>
        <source>Unable to save the file </source>
        <translation>No se puede guardar el archivo </translation>
    </message>
    <message>
        <source>Time Elapsed: </source>
        <translation>Tiempo transcurrido: </translation>
    </message>
    <message>
        <source> sec </source>
        <translation> s </translation>
    </message>
    <message>
        <source> MB copied) </source>
        <translation> MB copiados) </translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Actualizar</translation>
    </message>
    <message>
        <source>Update failed 

 Update failed due to partial download.</source>
        <translation>Error en la actualización 

 La actualización falló porque la descarga está incompleta.</translation>
    </message>
    <message>
        <source>The installer could not be started.</source>
        <translation>No se pudo iniciar el instalador.</translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> MB de  </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>Velocidad de transferencia: </translation>
    </message>
    <message>
        <source> KB/sec </source>
        <translation> KB/s </translation>
    </message>
</context>
<context>
    <name>QShowUpdate</name>
    <message>
        <source>A new minor update </source>
        <translation>Una nueva actualización menor </translation>
    </message>
    <message>
        <source> is available. Click Update to proceed further.</source>
        <translation> está disponible. Haga clic en Actualizar para continuar.</translation>
    </message>
    <message>
        <source>A new major release </source>
        <translation>Una nueva versión principal </translation>
    </message>
</context>
<context>
    <name>QuestionDlg</name>
    <message>
        <source>Yes</source>
        <translation>Sí</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Choose Video</source>
        <translation>Elegir vídeo</translation>
    </message>
    <message>
        <source>Add a sample video:</source>
        <translation>Añada un vídeo de muestra:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Examinar</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Reparar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Apply to all files of same format.</source>
        <translation>Aplicar a todos los archivos del mismo formato.</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Añadir archivo</translation>
    </message>
</context>
<context>
    <name>ReferenceRepairedDlg</name>
    <message>
        <source>Video file repaired successfully!</source>
        <translation>¡Archivo de vídeo reparado correctamente!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>SaveDlgClass</name>
    <message>
        <source>Save Files</source>
        <translation>Guardar archivos</translation>
    </message>
    <message>
        <source>Save repaired file at source location.</source>
        <translation>Guardar el archivo reparado en la ubicación de origen.</translation>
    </message>
    <message>
        <source>Save file at custom location.</source>
        <translation>Guardar el archivo en otra ubicación.</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Examinar</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Seleccionar carpeta</translation>
    </message>
</context>
<context>
    <name>ShowUpdateAvail</name>
    <message>
        <source>Software Update</source>
        <translation>Actualización de software</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Actualizar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>Sizes</name>
    <message>
        <source>%1 bytes</source>
        <translation>%1 bytes</translation>
    </message>
</context>
<context>
    <name>StopDlg</name>
    <message>
        <source>Yes</source>
        <translation>Sí</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>VideoRepairWin</name>
    <message>
        <source>More Tools</source>
        <translation>Más herramientas</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>Minimizar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menú</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>Idiomas</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Actualizar</translation>
    </message>
    <message>
        <source>Add Your Corrupt Videos to Repair</source>
        <translation>Añada los vídeos dañados que quiera reparar</translation>
    </message>
    <message>
        <source>Add Videos</source>
        <translation>Añadir vídeos</translation>
    </message>
    <message>
        <source>Repair Your Videos</source>
        <translation>Repare sus vídeos</translation>
    </message>
    <message>
        <source>Click &apos;Repair&apos; button to fix corrupted videos. This may take a while depending on the number of videos and their size</source>
        <translation>Haga clic en el botón «Reparar» para corregir los vídeos dañados. Puede tardar un poco según el número de vídeos y su tamaño</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Seleccionar todo</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>Haga clic aquí</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Reparar</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Overall Progress</source>
        <translation>Progreso total</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vista previa</translation>
    </message>
    <message>
        <source>What is a reference file?</source>
        <translation>¿Qué es un archivo de referencia?</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>Guardar archivos reparados</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
</context>
<context>
    <name>VideoRepairWindow</name>
    <message>
        <source>Queued</source>
        <translation>En cola</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>Procesando</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Completado</translation>
    </message>
    <message>
        <source>Awaiting Action</source>
        <translation>Acción necesaria</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Cancelado</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vista previa</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>Rep. avanzada</translation>
    </message>
    <message>
        <source>FFmpeg Not Found</source>
        <translation>FFmpeg no encontrado</translation>
    </message>
    <message>
        <source>FFmpeg is not installed, so damaged videos can be checked but not rebuilt.
Install it with: sudo apt-get install ffmpeg</source>
        <translation>FFmpeg no está instalado: los vídeos dañados se pueden analizar, pero no reconstruir.
Instálelo con: sudo apt-get install ffmpeg</translation>
    </message>
    <message>
        <source> : Repairing file</source>
        <translation> : Reparando archivo</translation>
    </message>
    <message>
        <source>of</source>
        <translation>de</translation>
    </message>
    <message>
        <source>Repairing </source>
        <translation>Reparando </translation>
    </message>
    <message>
        <source>Repair Complete</source>
        <translation>Reparación completada</translation>
    </message>
    <message>
        <source>Repair process completed.
Check &apos;Status&apos; column to view the repair outcome.</source>
        <translation>El proceso de reparación ha finalizado.
Consulte la columna «Estado» para ver el resultado.</translation>
    </message>
    <message>
        <source>Advance Repair Required</source>
        <translation>Se necesita reparación avanzada</translation>
    </message>
    <message>
        <source>This video is severely damaged. Run advance repair option to repair it before saving.</source>
        <translation>Este vídeo está muy dañado. Ejecute la reparación avanzada antes de guardarlo.</translation>
    </message>
    <message>
        <source>Process Aborted</source>
        <translation>Proceso cancelado</translation>
    </message>
    <message>
        <source>Repair process was aborted. Go back to the previous screen to restart the repair process.</source>
        <translation>El proceso de reparación se ha cancelado. Vuelva a la pantalla anterior para reiniciar la reparación.</translation>
    </message>
    <message>
        <source>Severely Corrupted Video</source>
        <translation>Vídeo muy dañado</translation>
    </message>
    <message>
        <source>This video is severely corrupted and cannot be repaired.</source>
        <translation>Este vídeo está muy dañado y no se puede reparar.</translation>
    </message>
    <message>
        <source>Stop Repair</source>
        <translation>Detener reparación</translation>
    </message>
    <message>
        <source>This process will stop after processing the current file.</source>
        <translation>El proceso se detendrá después de procesar el archivo actual.</translation>
    </message>
    <message>
        <source>Do you want to stop the process?</source>
        <translation>¿Desea detener el proceso?</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>¿Desea detener el proceso actual?</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>No podrá reanudar el proceso desde este punto. Se descartarán todos los cambios. </translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>Esta acción borrará los resultados de la reparación.
¿Desea volver a la pantalla anterior?</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted video before leaving this page?</source>
        <translation>¿Desea ejecutar la reparación avanzada en el vídeo muy dañado antes de salir de esta página?</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>Idiomas</translation>
    </message>
    <message>
        <source>List of video files</source>
        <translation>Lista de archivos de vídeo</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> Nombre de archivo</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> Ruta</translation>
    </message>
    <message>
        <source> Size (MB)</source>
        <translation> Tamaño (MB)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> Fecha de modificación</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> Fecha de creación</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  Ruta</translation>
    </message>
    <message>
        <source> Status</source>
        <translation> Estado</translation>
    </message>
    <message>
        <source> Action</source>
        <translation> Acción</translation>
    </message>
    <message>
        <source>Repaired files will be saved in %1.</source>
        <translation>Los archivos reparados se guardarán en %1.</translation>
    </message>
    <message>
        <source>Repaired files will be saved at the source file location.</source>
        <translation>Los archivos reparados se guardarán en la ubicación de los archivos de origen.</translation>
    </message>
    <message>
        <source>To change location</source>
        <translation>Para cambiar la ubicación</translation>
    </message>
    <message>
        <source>Repairing selected videos</source>
        <translation>Reparando los vídeos seleccionados</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of videos and their file size. Please wait while the process is completed.</source>
        <translation>Puede tardar un poco según el número de vídeos y su tamaño. Espere mientras se completa el proceso.</translation>
    </message>
    <message>
        <source>Repair Process Completed</source>
        <translation>Proceso de reparación completado</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired videos. Click the &apos;Preview&apos; under Action column to preview repaired videos. </source>
        <translation>Haga clic en «Guardar archivos reparados» para guardar todos los vídeos reparados. Haga clic en «Vista previa» en la columna Acción para ver un vídeo reparado. </translation>
    </message>
    <message>
        <source>Advance Repair Running</source>
        <translation>Reparación avanzada en curso</translation>
    </message>
    <message>
        <source>Please wait while the &apos;Advance Repair&apos; process is running.</source>
        <translation>Espere mientras se ejecuta la reparación avanzada.</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Añadir archivo</translation>
    </message>
    <message>
        <source>Already added files</source>
        <translation>Archivos ya añadidos</translation>
    </message>
    <message>
        <source>Files already added to list will be skipped.</source>
        <translation>Se omitirán los archivos que ya están en la lista.</translation>
    </message>
    <message>
        <source>Choose Location</source>
        <translation>Elegir ubicación</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Application Running! 
Please halt the current process to Exit.</source>
        <translation>¡La aplicación se está ejecutando! 
Detenga el proceso actual para salir.</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted files before exiting?</source>
        <translation>¿Desea ejecutar la reparación avanzada en los archivos muy dañados antes de salir?</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>¿Seguro que desea salir?</translation>
    </message>
    <message>
        <source>File Not Found</source>
        <translation>Archivo no encontrado</translation>
    </message>
    <message>
        <source>The repaired file is no longer there:
%1</source>
        <translation>El archivo reparado ya no existe:
%1</translation>
    </message>
    <message>
        <source>Player Not Found</source>
        <translation>Reproductor no encontrado</translation>
    </message>
    <message>
        <source>Preview needs MPlayer, which could not be started.
Install it with: sudo apt-get install mplayer</source>
        <translation>La vista previa necesita MPlayer, que no se pudo iniciar.
Instálelo con: sudo apt-get install mplayer</translation>
    </message>
    <message>
        <source>Saving Complete</source>
        <translation>Guardado completado</translation>
    </message>
    <message>
        <source>Repaired files saved successfully.</source>
        <translation>Los archivos reparados se han guardado correctamente.</translation>
    </message>
    <message>
        <source>Files Not Saved</source>
        <translation>Archivos no guardados</translation>
    </message>
    <message>
        <source>These files could not be saved:
%1</source>
        <translation>No se pudieron guardar estos archivos:
%1</translation>
    </message>
    <message>
        <source>Wait while repaired files are being saved.</source>
        <translation>Espere mientras se guardan los archivos reparados.</translation>
    </message>
    <message>
        <source>No Files</source>
        <translation>Sin archivos</translation>
    </message>
    <message>
        <source>No Files Selected.</source>
        <translation>No hay archivos seleccionados.</translation>
    </message>
    <message>
        <source>Choose Another Folder</source>
        <translation>Elegir otra carpeta</translation>
    </message>
    <message>
        <source>This folder holds the program&apos;s work files and is removed at exit.
Choose another folder to save the repaired files.</source>
        <translation>Esta carpeta contiene los archivos de trabajo del programa y se elimina al salir.
Elija otra carpeta para guardar los archivos reparados.</translation>
    </message>
    <message>
        <source>Cannot Save Here</source>
        <translation>No se puede guardar aquí</translation>
    </message>
    <message>
        <source>Files can&apos;t be written to this folder:
%1
Choose another folder.</source>
        <translation>No se pueden escribir archivos en esta carpeta:
%1
Elija otra carpeta.</translation>
    </message>
</context>
<context>
    <name>repairFinishDialog</name>
    <message>
        <source>What is a reference file?</source>
        <translation>¿Qué es un archivo de referencia?</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
</TS>
