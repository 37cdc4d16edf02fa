<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR">
<context>
    <name>AboutDlg</name>
    <message>
        <source>About</source>
        <translation>Sobre</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Versão %1</translation>
    </message>
    <message>
        <source>System: %1</source>
        <translation>Sistema: %1</translation>
    </message>
    <message>
        <source>License</source>
        <translation>Licença</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Suporte</translation>
    </message>
</context>
<context>
    <name>AdvancedRepairDlg</name>
    <message>
        <source>Add Sample Video</source>
        <translation>Adicionar vídeo de amostra</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Advance Repair&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Use this option to repair severely damaged videos. &lt;/p&gt;&lt;p&gt;Click &amp;quot;Next&amp;quot; to add a &apos;sample video&apos; of the same format, shot using the same device.&lt;/p&gt;&lt;p&gt;The sample and the damaged video remain unchanged during repair process.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body style=&quot;font-family:&apos;Calibri Light,sans-serif&apos;; font-size:10pt;&quot;&gt;&lt;p&gt;&lt;b&gt;Reparo avançado&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Use esta opção para reparar vídeos muito danificados. &lt;/p&gt;&lt;p&gt;Clique em &amp;quot;Avançar&amp;quot; para adicionar um “vídeo de amostra” do mesmo formato, gravado com o mesmo dispositivo.&lt;/p&gt;&lt;p&gt;O vídeo de amostra e o vídeo danificado não são alterados durante o reparo.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Avançar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>Saiba mais</translation>
    </message>
</context>
<context>
    <name>CloseApplicationDlg</name>
    <message>
        <source>Yes</source>
        <translation>Sim</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Não</translation>
    </message>
</context>
<context>
    <name>DownloadUpdate</name>
    <message>
        <source>Software Update</source>
        <translation>Atualização de software</translation>
    </message>
    <message>
        <source>Downloading Files</source>
        <translation>Baixando arquivos</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>InsufficientDlg</name>
    <message>
        <source>Insufficient Space</source>
        <translation>Espaço insuficiente</translation>
    </message>
    <message>
        <source>Insufficient space at selected destination.
</source>
        <translation>Espaço insuficiente no destino selecionado.
</translation>
    </message>
    <message>
        <source>Click &apos;Browse&apos; to change destination .
</source>
        <translation>Clique em “Procurar” para alterar o destino.
</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Procurar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>InsufficientSpaceDlg</name>
    <message>
        <source>Available Space: %1, Required Space: %2
</source>
        <translation>Espaço disponível: %1, espaço necessário: %2
</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Selecionar pasta</translation>
    </message>
</context>
<context>
    <name>Languages</name>
    <message>
        <source>English</source>
        <translation>Inglês</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Alemão</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Francês</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italiano</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Espanhol</translation>
    </message>
    <message>
        <source>Japanese</source>
        <translation>Japonês</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>Chinês</translation>
    </message>
    <message>
        <source>Korean</source>
        <translation>Coreano</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Holandês</translation>
    </message>
    <message>
        <source>Portuguese Brazil</source>
        <translation>Português (Brasil)</translation>
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
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>Messages</name>
    <message>
        <source>Exit</source>
        <translation>Sair</translation>
    </message>
    <message>
        <source>Halvern Videomend</source>
        <translation>Halvern Videomend</translation>
    </message>
    <message>
        <source>Halvern Videomend is already running.</source>
        <translation>O Halvern Videomend já está em execução.</translation>
    </message>
</context>
<context>
    <name>QCheckUpdate</name>
    <message>
        <source>Update</source>
        <translation>Atualizar</translation>
    </message>
    <message>
        <source>No update available.</source>
        <translation>Nenhuma atualização disponível.</translation>
    </message>
</context>
<context>
    <name>QDownloadApp</name>
    <message>
        <source>no address of the update server is set</source>
        <translation>nenhum endereço do servidor de atualização foi definido</translation>
    </message>
    <message>
        <source>the folder %1 can&apos;t be used</source>
        <translation>a pasta %1 não pode ser usada</translation>
    </message>
    <message>
        <source>Unable to save the file </source>
        <translation>Não foi possível salvar o arquivo </translation>
    </message>
    <message>
        <source>Time Elapsed: </source>
        <translation>Tempo decorrido: </translation>
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
        <translation>Atualizar</translation>
    </message>
    <message>
        <source>Update failed 

 Update failed due to partial download.</source>
        <translation>Falha na atualização 

 A atualização falhou porque o download está incompleto.</translation>
    </message>
    <message>
        <source>The installer could not be started.</source>
        <translation>Não foi possível iniciar o instalador.</translation>
    </message>
    <message>
        <source> MB of  </source>
        <translation> MB de  </translation>
    </message>
    <message>
        <source>Transfer Rate: </source>
        <translation>Taxa de transferência: </translation>
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
        <translation>Uma nova atualização secundária </translation>
    </message>
    <message>
        <source> is available. Click Update to proceed further.</source>
        <translation> está disponível. Clique em Atualizar para continuar.</translation>
    </message>
    <message>
        <source>A new major release </source>
        <translation>Uma nova versão principal </translation>
    </message>
</context>
<context>
    <name>QuestionDlg</name>
    <message>
        <source>Yes</source>
        <translation>Sim</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Não</translation>
    </message>
</context>
<context>
    <name>ReferenceFileDlg</name>
    <message>
        <source>Choose Video</source>
        <translation>Escolher vídeo</translation>
    </message>
    <message>
        <source>Add a sample video:</source>
        <translation>Adicione um vídeo de amostra:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Procurar</translation>
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
        <translation>Aplicar a todos os arquivos do mesmo formato.</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Adicionar arquivo</translation>
    </message>
</context>
<context>
    <name>ReferenceRepairedDlg</name>
    <message>
        <source>Video file repaired successfully!</source>
        <translation>Arquivo de vídeo reparado com sucesso!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>SaveDlgClass</name>
    <message>
        <source>Save Files</source>
        <translation>Salvar arquivos</translation>
    </message>
    <message>
        <source>Save repaired file at source location.</source>
        <translation>Salvar o arquivo reparado no local de origem.</translation>
    </message>
    <message>
        <source>Save file at custom location.</source>
        <translation>Salvar o arquivo em outro local.</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Procurar</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Salvar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Selecionar pasta</translation>
    </message>
</context>
<context>
    <name>ShowUpdateAvail</name>
    <message>
        <source>Software Update</source>
        <translation>Atualização de software</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Atualizar</translation>
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
        <translation>Sim</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Não</translation>
    </message>
</context>
<context>
    <name>VideoRepairWin</name>
    <message>
        <source>More Tools</source>
        <translation>Mais ferramentas</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>Minimizar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>Idiomas</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Sobre</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ajuda</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Atualizar</translation>
    </message>
    <message>
        <source>Add Your Corrupt Videos to Repair</source>
        <translation>Adicione seus vídeos corrompidos para reparar</translation>
    </message>
    <message>
        <source>Add Videos</source>
        <translation>Adicionar vídeos</translation>
    </message>
    <message>
        <source>Repair Your Videos</source>
        <translation>Repare seus vídeos</translation>
    </message>
    <message>
        <source>Click &apos;Repair&apos; button to fix corrupted videos. This may take a while depending on the number of videos and their size</source>
        <translation>Clique no botão “Reparar” para corrigir os vídeos corrompidos. Isso pode levar algum tempo, dependendo do número de vídeos e do tamanho deles</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Selecionar tudo</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Adicionar</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Remover</translation>
    </message>
    <message>
        <source>Click here</source>
        <translation>Clique aqui</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Reparar</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Voltar</translation>
    </message>
    <message>
        <source>Overall Progress</source>
        <translation>Progresso geral</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Visualizar</translation>
    </message>
    <message>
        <source>What is a reference file?</source>
        <translation>O que é um arquivo de referência?</translation>
    </message>
    <message>
        <source>Save Repaired Files</source>
        <translation>Salvar arquivos reparados</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Parar</translation>
    </message>
</context>
<context>
    <name>VideoRepairWindow</name>
    <message>
        <source>Queued</source>
        <translation>Na fila</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>Processando</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Concluído</translation>
    </message>
    <message>
        <source>Awaiting Action</source>
        <translation>Ação necessária</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Falhou</translation>
    </message>
    <message>
        <source>Aborted</source>
        <translation>Cancelado</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Visualizar</translation>
    </message>
    <message>
        <source>Advance Repair</source>
        <translation>Rep. avançado</translation>
    </message>
    <message>
        <source>FFmpeg Not Found</source>
        <translation>FFmpeg não encontrado</translation>
    </message>
    <message>
        <source>FFmpeg is not installed, so damaged videos can be checked but not rebuilt.
Install it with: sudo apt-get install ffmpeg</source>
        <translation>O FFmpeg não está instalado: os vídeos danificados podem ser verificados, mas não reconstruídos.
Instale-o com: sudo apt-get install ffmpeg</translation>
    </message>
    <message>
        <source> : Repairing file</source>
        <translation> : Reparando arquivo</translation>
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
        <translation>Reparo concluído</translation>
    </message>
    <message>
        <source>Repair process completed.
Check &apos;Status&apos; column to view the repair outcome.</source>
        <translation>O processo de reparo foi concluído.
Veja o resultado na coluna “Status”.</translation>
    </message>
    <message>
        <source>Advance Repair Required</source>
        <translation>Reparo avançado necessário</translation>
    </message>
    <message>
        <source>This video is severely damaged. Run advance repair option to repair it before saving.</source>
        <translation>Este vídeo está muito danificado. Execute o reparo avançado antes de salvá-lo.</translation>
    </message>
    <message>
        <source>Process Aborted</source>
        <translation>Processo cancelado</translation>
    </message>
    <message>
        <source>Repair process was aborted. Go back to the previous screen to restart the repair process.</source>
        <translation>O processo de reparo foi cancelado. Volte à tela anterior para reiniciar o reparo.</translation>
    </message>
    <message>
        <source>Severely Corrupted Video</source>
        <translation>Vídeo muito corrompido</translation>
    </message>
    <message>
        <source>This video is severely corrupted and cannot be repaired.</source>
        <translation>Este vídeo está muito corrompido e não pode ser reparado.</translation>
    </message>
    <message>
        <source>Stop Repair</source>
        <translation>Parar reparo</translation>
    </message>
    <message>
        <source>This process will stop after processing the current file.</source>
        <translation>O processo será interrompido após o processamento do arquivo atual.</translation>
    </message>
    <message>
        <source>Do you want to stop the process?</source>
        <translation>Deseja interromper o processo?</translation>
    </message>
    <message>
        <source>Do you want to stop the current process?</source>
        <translation>Deseja interromper o processo atual?</translation>
    </message>
    <message>
        <source>You can&apos;t resume the process from this point. All the changes will be discarded. </source>
        <translation>Não será possível retomar o processo a partir deste ponto. Todas as alterações serão descartadas. </translation>
    </message>
    <message>
        <source>This action will clear repair results.
Do you want to go back to previous screen?</source>
        <translation>Esta ação apagará os resultados do reparo.
Deseja voltar à tela anterior?</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Voltar</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted video before leaving this page?</source>
        <translation>Deseja executar o reparo avançado no vídeo muito corrompido antes de sair desta página?</translation>
    </message>
    <message>
        <source>Languages</source>
        <translation>Idiomas</translation>
    </message>
    <message>
        <source>List of video files</source>
        <translation>Lista de arquivos de vídeo</translation>
    </message>
    <message>
        <source> File Name</source>
        <translation> Nome do arquivo</translation>
    </message>
    <message>
        <source> Path</source>
        <translation> Caminho</translation>
    </message>
    <message>
        <source> Size (MB)</source>
        <translation> Tamanho (MB)</translation>
    </message>
    <message>
        <source> Modified Date</source>
        <translation> Data de modificação</translation>
    </message>
    <message>
        <source> Created Date</source>
        <translation> Data de criação</translation>
    </message>
    <message>
        <source>  Path</source>
        <translation>  Caminho</translation>
    </message>
    <message>
        <source> Status</source>
        <translation> Status</translation>
    </message>
    <message>
        <source> Action</source>
        <translation> Ação</translation>
    </message>
    <message>
        <source>Repaired files will be saved in %1.</source>
        <translation>Os arquivos reparados serão salvos em %1.</translation>
    </message>
    <message>
        <source>Repaired files will be saved at the source file location.</source>
        <translation>Os arquivos reparados serão salvos no local dos arquivos de origem.</translation>
    </message>
    <message>
        <source>To change location</source>
        <translation>Para alterar o local</translation>
    </message>
    <message>
        <source>Repairing selected videos</source>
        <translation>Reparando os vídeos selecionados</translation>
    </message>
    <message>
        <source>This may take a while, depending on the number of videos and their file size. Please wait while the process is completed.</source>
        <translation>Isso pode levar algum tempo, dependendo do número de vídeos e do tamanho dos arquivos. Aguarde a conclusão do processo.</translation>
    </message>
    <message>
        <source>Repair Process Completed</source>
        <translation>Processo de reparo concluído</translation>
    </message>
    <message>
        <source>Click on the &apos;Save Repaired Files&apos; to save all your repaired videos. Click the &apos;Preview&apos; under Action column to preview repaired videos. </source>
        <translation>Clique em “Salvar arquivos reparados” para salvar todos os vídeos reparados. Clique em “Visualizar” na coluna Ação para ver um vídeo reparado. </translation>
    </message>
    <message>
        <source>Advance Repair Running</source>
        <translation>Reparo avançado em andamento</translation>
    </message>
    <message>
        <source>Please wait while the &apos;Advance Repair&apos; process is running.</source>
        <translation>Aguarde enquanto o reparo avançado está em andamento.</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Adicionar arquivo</translation>
    </message>
    <message>
        <source>Already added files</source>
        <translation>Arquivos já adicionados</translation>
    </message>
    <message>
        <source>Files already added to list will be skipped.</source>
        <translation>Os arquivos que já estão na lista serão ignorados.</translation>
    </message>
    <message>
        <source>Choose Location</source>
        <translation>Escolher local</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Sair</translation>
    </message>
    <message>
        <source>Application Running! 
Please halt the current process to Exit.</source>
        <translation>O aplicativo está em execução! 
Interrompa o processo atual para sair.</translation>
    </message>
    <message>
        <source>Do you want to run advance repair on the severely corrupted files before exiting?</source>
        <translation>Deseja executar o reparo avançado nos arquivos muito corrompidos antes de sair?</translation>
    </message>
    <message>
        <source>Are you sure you want to exit?</source>
        <translation>Tem certeza de que deseja sair?</translation>
    </message>
    <message>
        <source>File Not Found</source>
        <translation>Arquivo não encontrado</translation>
    </message>
    <message>
        <source>The repaired file is no longer there:
%1</source>
        <translation>O arquivo reparado não existe mais:
%1</translation>
    </message>
    <message>
        <source>Player Not Found</source>
        <translation>Reprodutor não encontrado</translation>
    </message>
    <message>
        <source>Preview needs MPlayer, which could not be started.
Install it with: sudo apt-get install mplayer</source>
        <translation>A visualização precisa do MPlayer, que não pôde ser iniciado.
Instale-o com: sudo apt-get install mplayer</translation>
    </message>
    <message>
        <source>Saving Complete</source>
        <translation>Salvamento concluído</translation>
    </message>
    <message>
        <source>Repaired files saved successfully.</source>
        <translation>Arquivos reparados salvos com sucesso.</translation>
    </message>
    <message>
        <source>Files Not Saved</source>
        <translation>Arquivos não salvos</translation>
    </message>
    <message>
        <source>These files could not be saved:
%1</source>
        <translation>Não foi possível salvar estes arquivos:
%1</translation>
    </message>
    <message>
        <source>Wait while repaired files are being saved.</source>
        <translation>Aguarde enquanto os arquivos reparados são salvos.</translation>
    </message>
    <message>
        <source>No Files</source>
        <translation>Nenhum arquivo</translation>
    </message>
    <message>
        <source>No Files Selected.</source>
        <translation>Nenhum arquivo selecionado.</translation>
    </message>
    <message>
        <source>Choose Another Folder</source>
        <translation>Escolher outra pasta</translation>
    </message>
    <message>
        <source>This folder holds the program&apos;s work files and is removed at exit.
Choose another folder to save the repaired files.</source>
        <translation>Esta pasta contém os arquivos de trabalho do programa e é removida ao sair.
Escolha outra pasta para salvar os arquivos reparados.</translation>
    </message>
    <message>
        <source>Cannot Save Here</source>
        <translation>Não é possível salvar aqui</translation>
    </message>
    <message>
        <source>Files can&apos;t be written to this folder:
%1
Choose another folder.</source>
        <translation>Não é possível gravar arquivos nesta pasta:
%1
Escolha outra pasta.</translation>
    </message>
</context>
<context>
    <name>repairFinishDialog</name>
    <message>
        <source>What is a reference file?</source>
        <translation>O que é um arquivo de referência?</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
</TS>
