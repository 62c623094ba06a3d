<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru" sourcelanguage="en">
<context>
    <name>AddPackageDialog</name>
    <message>
        <source>Add package from external repo</source>
        <translation>Добавить пакет из внешнего репозитория</translation>
    </message>
    <message>
        <source>Enter package name:</source>
        <translation>Введите имя пакета:</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Добавить</translation>
    </message>
</context>
<context>
    <name>AddPkgSettingsDialog</name>
    <message>
        <source>Package add settings</source>
        <translation>Настройки добавления пакетов</translation>
    </message>
    <message>
        <source>Component:</source>
        <translation>Компонент:</translation>
    </message>
    <message>
        <source>The component to which packages will be added.</source>
        <translation>Компонент, в который будут добавлены пакеты.</translation>
    </message>
    <message>
        <source>Sign the package for a closed software environment</source>
        <translation>Подписать пакет для замкнутой программной среды</translation>
    </message>
    <message>
        <source>Check depends</source>
        <translation>Проверять зависимости</translation>
    </message>
    <message>
        <source>Show dialog when adding packages</source>
        <translation>Показывать это окно при добавлении пакетов</translation>
    </message>
    <message>
        <source>(each package&apos;s own component)</source>
        <translation>(собственный компонент каждого пакета)</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Предпросмотр...</translation>
    </message>
</context>
<context>
    <name>AddedListsFetch</name>
    <message>
        <source>No files could be written in %1.</source>
        <translation>Не удалось записать файлы в %1.</translation>
    </message>
</context>
<context>
    <name>AddedSourcesBar</name>
    <message>
        <source>Fetching the lists of your own sources</source>
        <translation>Загрузка списков ваших источников</translation>
    </message>
    <message>
        <source>&amp;Fetch again</source>
        <translation>&amp;Загрузить снова</translation>
    </message>
    <message>
        <source>Fetching the lists of your own sources...</source>
        <translation>Загрузка списков ваших источников...</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>О&amp;становить</translation>
    </message>
    <message>
        <source>The lists of your own sources were not fetched.</source>
        <translation>Списки ваших источников не загружены.</translation>
    </message>
    <message>
        <source>Your own sources: %1</source>
        <translation>Ваши источники: %1</translation>
    </message>
    <message>
        <source>Lists of your own sources: %1</source>
        <translation>Списки ваших источников: %1</translation>
    </message>
</context>
<context>
    <name>ApplyJob</name>
    <message>
        <source>Nothing was done: there is no preview of this repository.</source>
        <translation>Ничего не сделано: для этого репозитория нет предпросмотра.</translation>
    </message>
    <message>
        <source>Applying the preview</source>
        <translation>Применение предпросмотра</translation>
    </message>
    <message>
        <source>Nothing was done.</source>
        <translation>Ничего не сделано.</translation>
    </message>
    <message>
        <source>Nothing was done: the repository or a file has changed since the preview was made.</source>
        <translation>Ничего не сделано: репозиторий или файл изменился после предпросмотра.</translation>
    </message>
    <message>
        <source>Nothing was to be changed.</source>
        <translation>Изменять было нечего.</translation>
    </message>
</context>
<context>
    <name>AptFetch</name>
    <message>
        <source>The source %1 does not have one of its components.</source>
        <translation>В источнике %1 нет одного из его компонентов.</translation>
    </message>
    <message>
        <source>The source %1 is not trusted: its signature is missing or cannot be checked.</source>
        <translation>Источник %1 не является доверенным: его подпись отсутствует или не может быть проверена.</translation>
    </message>
    <message>
        <source>The source %1 does not exist there.</source>
        <translation>Источника %1 по этому адресу нет.</translation>
    </message>
    <message>
        <source>A part of the source is missing: %1.</source>
        <translation>Отсутствует часть источника: %1.</translation>
    </message>
    <message>
        <source>The server could not be reached: %1.</source>
        <translation>Не удалось связаться с сервером: %1.</translation>
    </message>
    <message>
        <source>The source could not be fetched: %1.</source>
        <translation>Не удалось получить данные источника: %1.</translation>
    </message>
    <message>
        <source>apt could not fetch the lists of packages.</source>
        <translation>apt не удалось получить списки пакетов.</translation>
    </message>
    <message>
        <source>The source %1 has expired: it is no longer updated, or the clock of this machine is wrong.</source>
        <translation>Срок действия источника %1 истёк: он больше не обновляется, или часы этого компьютера идут неверно.</translation>
    </message>
    <message>
        <source>apt of this machine cannot use addresses with &quot;%1:&quot;.</source>
        <translation>apt на этом компьютере не может использовать адреса с «%1:».</translation>
    </message>
</context>
<context>
    <name>AptUtils</name>
    <message>
        <source>Apt error</source>
        <translation>Ошибка apt</translation>
    </message>
    <message>
        <source>apt has no list of the packages of any public source. &quot;apt update&quot; fetches the lists of the sources that it has been told of.</source>
        <translation>У apt нет списков пакетов ни одного общедоступного источника. Команда «apt update» получает списки известных apt источников.</translation>
    </message>
    <message>
        <source>apt-cache: error showing package %1 info</source>
        <translation>apt-cache: ошибка показа сведений о пакете %1</translation>
    </message>
    <message>
        <source>Apt: download package %1 error</source>
        <translation>apt: ошибка загрузки пакета %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not the name of a package</source>
        <translation>«%1» не является именем пакета</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an architecture</source>
        <translation>«%1» не является архитектурой</translation>
    </message>
    <message>
        <source>apt on this computer does not know the architecture(s) %1, so it could not say what public sources offer for them. These commands make apt know: %2</source>
        <translation>apt этого компьютера не знает следующие архитектуры и потому не мог сообщить, что для них предлагают общедоступные источники: %1. Эти команды сообщат о них apt: %2</translation>
    </message>
</context>
<context>
    <name>ArchiveCommands</name>
    <message>
        <source>Import packages from folder</source>
        <translation>Импортировать пакеты из папки</translation>
    </message>
    <message>
        <source>Not imported: %1</source>
        <translation>Не импортировано: %1</translation>
    </message>
    <message>
        <source>Select folder with packages</source>
        <translation>Выберите папку с пакетами</translation>
    </message>
    <message>
        <source>Select export archive</source>
        <translation>Выберите архив для экспорта</translation>
    </message>
    <message>
        <source>Archives (*.tgz *.tar.gzip)</source>
        <translation>Архивы (*.tgz *.tar.gzip)</translation>
    </message>
    <message>
        <source>Not exported: %1</source>
        <translation>Не экспортировано: %1</translation>
    </message>
    <message>
        <source>Select archive with packages</source>
        <translation>Выберите архив с пакетами</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Все файлы (*)</translation>
    </message>
    <message>
        <source>Select directory</source>
        <translation>Выберите каталог</translation>
    </message>
</context>
<context>
    <name>ArchiveUtils</name>
    <message>
        <source>Can&apos;t open archive for import!</source>
        <translation>Не удалось открыть архив для импорта!</translation>
    </message>
    <message>
        <source>Can&apos;t umount archive!</source>
        <translation>Не удалось размонтировать архив!</translation>
    </message>
    <message>
        <source>The folder %1 cannot be used: %2</source>
        <translation>Папку %1 использовать нельзя: %2</translation>
    </message>
    <message>
        <source>Another import is reading an archive. Try again when it is done.</source>
        <translation>Другой импорт сейчас читает архив. Повторите попытку, когда он закончится.</translation>
    </message>
    <message>
        <source>The archive of an earlier import is still mounted.</source>
        <translation>Архив предыдущего импорта всё ещё смонтирован.</translation>
    </message>
    <message>
        <source>The program %1 could not be started. Install the package %2.</source>
        <translation>Не удалось запустить программу %1. Установите пакет %2.</translation>
    </message>
</context>
<context>
    <name>ArchiveWriter</name>
    <message>
        <source>It is no file.</source>
        <translation>Это не файл.</translation>
    </message>
    <message>
        <source>It is larger than the 8 GiB that an archive can hold of a file.</source>
        <translation>Размер превышает 8 ГиБ — наибольший размер файла в архиве.</translation>
    </message>
    <message>
        <source>It was changed by another program while it was read.</source>
        <translation>Файл был изменён другой программой во время чтения.</translation>
    </message>
</context>
<context>
    <name>BatchCommands</name>
    <message>
        <source>All open repositories</source>
        <translation>Все открытые репозитории</translation>
    </message>
    <message>
        <source>Check depends</source>
        <translation>Проверять зависимости</translation>
    </message>
    <message>
        <source>Complete check</source>
        <translation>Полная проверка</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>Экспорт...</translation>
    </message>
    <message>
        <source>Upgrade...</source>
        <translation>Обновить...</translation>
    </message>
    <message>
        <source>Publish</source>
        <translation>Опубликовать</translation>
    </message>
    <message>
        <source>Open repositories below a folder...</source>
        <translation>Открыть репозитории в папке...</translation>
    </message>
    <message>
        <source>Folder with repositories</source>
        <translation>Папка с репозиториями</translation>
    </message>
    <message>
        <source>Open repositories</source>
        <translation>Открытие репозиториев</translation>
    </message>
    <message>
        <source>There is no repository in %1 and in the folders directly below it.</source>
        <translation>В %1 и в папках непосредственно под ней нет репозиториев.</translation>
    </message>
    <message>
        <source>Warning!</source>
        <translation>Внимание!</translation>
    </message>
    <message>
        <source>Dependences checking is disabled.</source>
        <translation>Проверка зависимостей отключена.</translation>
    </message>
    <message>
        <source>Checking the dependences of all open repositories</source>
        <translation>Проверка зависимостей всех открытых репозиториев</translation>
    </message>
    <message>
        <source>Complete check of all open repositories</source>
        <translation>Полная проверка всех открытых репозиториев</translation>
    </message>
    <message>
        <source>Folder for the archives</source>
        <translation>Папка для архивов</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Экспорт</translation>
    </message>
    <message>
        <source>Do you want to replace the archives that are there?</source>
        <translation>Заменить имеющиеся архивы?</translation>
    </message>
    <message>
        <source>The repository has moved.</source>
        <translation>Репозиторий перемещён.</translation>
    </message>
    <message>
        <source>Export of all open repositories</source>
        <translation>Экспорт всех открытых репозиториев</translation>
    </message>
    <message>
        <source>You may not write to this repository.</source>
        <translation>У вас нет права изменять этот репозиторий.</translation>
    </message>
    <message>
        <source>The repository is empty.</source>
        <translation>Репозиторий пуст.</translation>
    </message>
    <message>
        <source>There are no newer packages.</source>
        <translation>Более новых пакетов нет.</translation>
    </message>
    <message>
        <source>Upgrade of all open repositories</source>
        <translation>Обновление всех открытых репозиториев</translation>
    </message>
    <message>
        <source>Publication of all open repositories</source>
        <translation>Публикация всех открытых репозиториев</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Text (*.txt)</source>
        <translation>Текст (*.txt)</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>Сохранение отчёта</translation>
    </message>
    <message>
        <source>The report is saved in %1.</source>
        <translation>Отчёт сохранён в %1.</translation>
    </message>
    <message>
        <source>The report cannot be saved in %1.</source>
        <translation>Не удалось сохранить отчёт в %1.</translation>
    </message>
    <message>
        <source>Packages with missing dependencies: %1, not checked: %2</source>
        <translation>Пакетов с недостающими зависимостями: %1, не проверено: %2</translation>
    </message>
    <message>
        <source>Packages that cannot be installed: %1, not known: %2</source>
        <translation>Пакетов, которые нельзя установить: %1, неизвестно: %2</translation>
    </message>
    <message>
        <source>It is not known what is newer.</source>
        <translation>Неизвестно, что новее.</translation>
    </message>
</context>
<context>
    <name>BatchDialog</name>
    <message>
        <source>One repository after the other. You can go on working meanwhile.</source>
        <translation>Репозитории обрабатываются по очереди. Тем временем можно продолжать работу.</translation>
    </message>
    <message>
        <source>Repository</source>
        <translation>Репозиторий</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Состояние</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Результат</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Остановить</translation>
    </message>
    <message>
        <source>Save as report...</source>
        <translation>Сохранить как отчёт...</translation>
    </message>
</context>
<context>
    <name>BatchReport</name>
    <message>
        <source>Waiting</source>
        <translation>Ожидание</translation>
    </message>
    <message>
        <source>At work</source>
        <translation>В работе</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Готово</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>Ошибки</translation>
    </message>
    <message>
        <source>Left out</source>
        <translation>Пропущено</translation>
    </message>
    <message numerus="yes">
        <source>%n repository(ies) done</source>
        <translation>
            <numerusform>%n репозиторий готов</numerusform>
            <numerusform>%n репозитория готовы</numerusform>
            <numerusform>%n репозиториев готово</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n with errors</source>
        <translation>
            <numerusform>%n с ошибками</numerusform>
            <numerusform>%n с ошибками</numerusform>
            <numerusform>%n с ошибками</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n left out</source>
        <translation>
            <numerusform>%n пропущен</numerusform>
            <numerusform>%n пропущено</numerusform>
            <numerusform>%n пропущено</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BatchRun</name>
    <message>
        <source>The tab was closed.</source>
        <translation>Вкладка была закрыта.</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Остановлено</translation>
    </message>
    <message>
        <source>Nothing was done.</source>
        <translation>Ничего не сделано.</translation>
    </message>
</context>
<context>
    <name>ChangesModel</name>
    <message>
        <source>Package</source>
        <translation>Пакет</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Изменение</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Архитектура</translation>
    </message>
    <message>
        <source>Component</source>
        <translation>Компонент</translation>
    </message>
    <message>
        <source>Old version</source>
        <translation>Старая версия</translation>
    </message>
    <message>
        <source>New version</source>
        <translation>Новая версия</translation>
    </message>
</context>
<context>
    <name>CheckBaseMenu</name>
    <message>
        <source>Complete check against</source>
        <translation>Полная проверка относительно</translation>
    </message>
    <message>
        <source>Foreign architectures</source>
        <translation>Сторонние архитектуры</translation>
    </message>
    <message>
        <source>The repository alone</source>
        <translation>Только репозиторий</translation>
    </message>
    <message>
        <source>Debian&apos;s essential packages</source>
        <translation>Необходимые пакеты Debian</translation>
    </message>
    <message>
        <source>What the public sources offer</source>
        <translation>Всё, что предлагают общедоступные источники</translation>
    </message>
    <message>
        <source>Another repository...</source>
        <translation>Другой репозиторий...</translation>
    </message>
</context>
<context>
    <name>CheckTableDialog</name>
    <message>
        <source>&amp;Select all</source>
        <translation>&amp;Выбрать все</translation>
    </message>
    <message>
        <source>Selected: %1 of %2</source>
        <translation>Выбрано: %1 из %2</translation>
    </message>
</context>
<context>
    <name>ClosingSequence</name>
    <message>
        <source>Warning</source>
        <translation>Предупреждение</translation>
    </message>
    <message>
        <source>%1 is in progress, do you really want to close the program?</source>
        <translation>Выполняется: %1. Вы действительно хотите закрыть программу?</translation>
    </message>
    <message>
        <source>%1 is in progress, do you really want to close the repository?</source>
        <translation>Выполняется: %1. Вы действительно хотите закрыть репозиторий?</translation>
    </message>
</context>
<context>
    <name>ColumnChoice</name>
    <message>
        <source>Columns</source>
        <translation>Столбцы</translation>
    </message>
</context>
<context>
    <name>CompanionsTree</name>
    <message>
        <source>Package</source>
        <translation>Пакет</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Версия</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Откуда</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Загрузка</translation>
    </message>
    <message>
        <source>Installed</source>
        <translation>На диске</translation>
    </message>
    <message>
        <source>public sources</source>
        <translation>общедоступные источники</translation>
    </message>
    <message>
        <source>this repository</source>
        <translation>этот репозиторий</translation>
    </message>
    <message numerus="yes">
        <source>On a bare system %n package(s) come in: %1 to download, %2 on the disk</source>
        <translation>
            <numerusform>В пустую систему устанавливается %n пакет: загрузка %1, на диске %2</numerusform>
            <numerusform>В пустую систему устанавливаются %n пакета: загрузка %1, на диске %2</numerusform>
            <numerusform>В пустую систему устанавливаются %n пакетов: загрузка %1, на диске %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CopyCommands</name>
    <message>
        <source>Copy to repository...</source>
        <translation>Копировать в репозиторий...</translation>
    </message>
    <message>
        <source>Move to repository...</source>
        <translation>Переместить в репозиторий...</translation>
    </message>
    <message>
        <source>Not copied: %1</source>
        <translation>Не скопировано: %1</translation>
    </message>
    <message>
        <source>You cannot change the repository %1: its files belong to another user, or its disk is read-only.</source>
        <translation>Вы не можете изменить репозиторий %1: его файлы принадлежат другому пользователю или его диск доступен только для чтения.</translation>
    </message>
    <message>
        <source>The packages are in this component already.</source>
        <translation>Пакеты уже находятся в этом компоненте.</translation>
    </message>
    <message>
        <source>Move confirmation</source>
        <translation>Подтверждение перемещения</translation>
    </message>
    <message>
        <source>Do you want to move the selected packages to %1?</source>
        <translation>Переместить выбранные пакеты в %1?</translation>
    </message>
    <message>
        <source>Will be copied next: %1</source>
        <translation>Далее будет скопировано: %1</translation>
    </message>
    <message>
        <source>The packages were copied, and stay in %1 too.</source>
        <translation>Пакеты скопированы и остаются также в %1.</translation>
    </message>
</context>
<context>
    <name>CopyDialog</name>
    <message>
        <source>With what they depend on</source>
        <translation>Вместе с зависимостями</translation>
    </message>
    <message>
        <source>Move packages</source>
        <translation>Перемещение пакетов</translation>
    </message>
    <message>
        <source>Copy packages</source>
        <translation>Копирование пакетов</translation>
    </message>
    <message>
        <source>%1 (another component)</source>
        <translation>%1 (другой компонент)</translation>
    </message>
    <message>
        <source>Open another...</source>
        <translation>Открыть другой...</translation>
    </message>
    <message>
        <source>Also those packages that they need and that the other repository does not have. These are always copied.</source>
        <translation>Также пакеты, которые им нужны и которых нет в другом репозитории. Они всегда копируются.</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Переместить</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Копировать</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Предпросмотр...</translation>
    </message>
    <message>
        <source>Repository:</source>
        <translation>Репозиторий:</translation>
    </message>
    <message>
        <source>Component:</source>
        <translation>Компонент:</translation>
    </message>
    <message>
        <source>as it is</source>
        <translation>как есть</translation>
    </message>
</context>
<context>
    <name>CureDialog</name>
    <message>
        <source>What this would change</source>
        <translation>Что это изменит</translation>
    </message>
    <message>
        <source>Working out what this would change...</source>
        <translation>Определяется, что это изменит...</translation>
    </message>
    <message>
        <source>Fetch</source>
        <translation>Загрузить</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Удалить</translation>
    </message>
    <message>
        <source>Upgrade</source>
        <translation>Обновить</translation>
    </message>
    <message>
        <source>What can be installed stays the same.</source>
        <translation>Набор устанавливаемых пакетов не изменится.</translation>
    </message>
    <message>
        <source>For the packages of this repository:</source>
        <translation>Для пакетов этого репозитория:</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could be installed then</source>
        <translation>
            <numerusform>%n пакет можно будет установить</numerusform>
            <numerusform>%n пакета можно будет установить</numerusform>
            <numerusform>%n пакетов можно будет установить</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could no longer be installed</source>
        <translation>
            <numerusform>%n пакет больше нельзя будет установить</numerusform>
            <numerusform>%n пакета больше нельзя будет установить</numerusform>
            <numerusform>%n пакетов больше нельзя будет установить</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>и ещё %n</numerusform>
            <numerusform>и ещё %n</numerusform>
            <numerusform>и ещё %n</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Cures</name>
    <message>
        <source>Remove %1 %2</source>
        <translation>Удалить %1 %2</translation>
    </message>
    <message>
        <source>Fetch %1 %2 from %3</source>
        <translation>Загрузить %1 %2 из %3</translation>
    </message>
    <message>
        <source>Take the newer %1 %2 from %3</source>
        <translation>Взять более новый %1 %2 из %3</translation>
    </message>
</context>
<context>
    <name>DependsCommands</name>
    <message>
        <source>Warning!</source>
        <translation>Внимание!</translation>
    </message>
    <message>
        <source>Dependences checking is disabled.</source>
        <translation>Проверка зависимостей отключена.</translation>
    </message>
    <message>
        <source>Add packages to local repository</source>
        <translation>Добавить пакеты в локальный репозиторий</translation>
    </message>
    <message>
        <source>Add package to local repository</source>
        <translation>Добавить пакет в локальный репозиторий</translation>
    </message>
    <message>
        <source>Not added: %1</source>
        <translation>Не добавлено: %1</translation>
    </message>
</context>
<context>
    <name>DependsModel</name>
    <message>
        <source>Package</source>
        <translation>Пакет</translation>
    </message>
</context>
<context>
    <name>DependsReport</name>
    <message>
        <source>not checked</source>
        <translation>не проверено</translation>
    </message>
    <message>
        <source>provided by %1</source>
        <translation>предоставляется %1</translation>
    </message>
    <message>
        <source>needs %1, %2</source>
        <translation>требуется %1, %2</translation>
    </message>
    <message>
        <source>no source offers it, nor a suitable version of what provides it: %1</source>
        <translation>ни один источник не предлагает его или подходящую версию того, что его предоставляет: %1</translation>
    </message>
    <message>
        <source>no source offers it</source>
        <translation>ни один источник его не предлагает</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Packages with satisfied dependencies: %1</source>
        <translation>Пакеты с удовлетворёнными зависимостями: %1</translation>
    </message>
    <message>
        <source>Packages with missing dependencies: %1</source>
        <translation>Пакеты с недостающими зависимостями: %1</translation>
    </message>
    <message>
        <source>Packages not checked: %1</source>
        <translation>Непроверенные пакеты: %1</translation>
    </message>
    <message>
        <source>Most wanted:</source>
        <translation>Чаще всего требуются:</translation>
    </message>
    <message numerus="yes">
        <source>%1, by %n package(s)</source>
        <translation>
            <numerusform>%1, для %n пакета</numerusform>
            <numerusform>%1, для %n пакетов</numerusform>
            <numerusform>%1, для %n пакетов</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 offers %2</source>
        <translation>%1 предлагает %2</translation>
    </message>
    <message>
        <source>Repository: %1</source>
        <translation>Репозиторий: %1</translation>
    </message>
    <message>
        <source>Mode: %1</source>
        <translation>Режим: %1</translation>
    </message>
    <message>
        <source>Date: %1</source>
        <translation>Дата: %1</translation>
    </message>
    <message>
        <source>the repository does not hold it (public sources were not asked)</source>
        <translation>в репозитории его нет (общедоступные источники не опрашивались)</translation>
    </message>
    <message>
        <source>no public source offers it</source>
        <translation>ни один общедоступный источник его не предлагает</translation>
    </message>
    <message>
        <source>the repository does not hold it, nor a suitable version of what provides it: %1</source>
        <translation>в репозитории нет ни его, ни подходящей версии того, что его предоставляет: %1</translation>
    </message>
    <message>
        <source>no public source offers it, nor a suitable version of what provides it: %1</source>
        <translation>ни один общедоступный источник не предлагает его или подходящую версию того, что его предоставляет: %1</translation>
    </message>
    <message>
        <source>not looked for, because apt does not know the architecture %1 (%2)</source>
        <translation>поиск не выполнялся, потому что apt не знает архитектуру %1 (%2)</translation>
    </message>
</context>
<context>
    <name>DependsReportCommands</name>
    <message>
        <source>Copy report</source>
        <translation>Скопировать отчёт</translation>
    </message>
    <message>
        <source>Save report...</source>
        <translation>Сохранить отчёт...</translation>
    </message>
    <message>
        <source>Report is copied to clipboard</source>
        <translation>Отчёт скопирован в буфер обмена</translation>
    </message>
    <message>
        <source>Text (*.txt)</source>
        <translation>Текст (*.txt)</translation>
    </message>
    <message>
        <source>JSON (*.json)</source>
        <translation>JSON (*.json)</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>Сохранение отчёта</translation>
    </message>
    <message>
        <source>The report is saved in %1.</source>
        <translation>Отчёт сохранён в %1.</translation>
    </message>
    <message>
        <source>The report cannot be saved in %1.</source>
        <translation>Не удалось сохранить отчёт в %1.</translation>
    </message>
</context>
<context>
    <name>DependsView</name>
    <message>
        <source>Copy</source>
        <translation>Копировать</translation>
    </message>
    <message>
        <source>Dependencies in this state are not shown. The buttons above choose what is shown.</source>
        <translation>Зависимости в этом состоянии не показываются. Кнопки выше определяют, что показывать.</translation>
    </message>
    <message>
        <source>The package has no dependencies.</source>
        <translation>У пакета нет зависимостей.</translation>
    </message>
    <message>
        <source>Not checked yet: press &quot;%1&quot;.</source>
        <translation>Ещё не проверено: нажмите «%1».</translation>
    </message>
    <message>
        <source>The package has no dependencies that can be checked.</source>
        <translation>У пакета нет зависимостей, которые можно проверить.</translation>
    </message>
    <message>
        <source>Check dependences</source>
        <translation>Проверить зависимости</translation>
    </message>
    <message>
        <source>Show depends undefined</source>
        <translation>Показывать непроверенные зависимости</translation>
    </message>
    <message>
        <source>Show depends error</source>
        <translation>Показывать неудовлетворённые зависимости</translation>
    </message>
    <message>
        <source>Show depends success</source>
        <translation>Показывать удовлетворённые зависимости</translation>
    </message>
    <message>
        <source>Dependences</source>
        <translation>Зависимости</translation>
    </message>
</context>
<context>
    <name>DescriptionEffect</name>
    <message>
        <source>The repository moves from %1 to %2.</source>
        <translation>Репозиторий переносится из %1 в %2.</translation>
    </message>
    <message>
        <source>The indices are written below dists/%1, and dists/%2 is deleted.</source>
        <translation>Индексы записываются в dists/%1, а dists/%2 удаляется.</translation>
    </message>
    <message>
        <source>All indices below dists/%1 are written anew.</source>
        <translation>Все индексы в dists/%1 записываются заново.</translation>
    </message>
    <message>
        <source>The indices of these components are deleted: %1.</source>
        <translation>Индексы этих компонентов удаляются: %1.</translation>
    </message>
    <message>
        <source>Indices of these components are added: %1.</source>
        <translation>Добавляются индексы этих компонентов: %1.</translation>
    </message>
    <message>
        <source>The indices of these architectures are deleted: %1.</source>
        <translation>Индексы этих архитектур удаляются: %1.</translation>
    </message>
    <message>
        <source>Indices of these architectures are added: %1.</source>
        <translation>Добавляются индексы этих архитектур: %1.</translation>
    </message>
    <message>
        <source>The lists of the packages&apos; files (Contents) are added.</source>
        <translation>Добавляются списки файлов пакетов (Contents).</translation>
    </message>
    <message>
        <source>The lists of the packages&apos; files (Contents) are deleted.</source>
        <translation>Списки файлов пакетов (Contents) удаляются.</translation>
    </message>
    <message>
        <source>These lines of the description are lost, and the file with them is kept as %1: %2</source>
        <translation>Эти строки описания теряются, файл с ними сохраняется как %1: %2</translation>
    </message>
    <message>
        <source>In the line of the source on each client, %1 must be replaced with %2.</source>
        <translation>В строке источника на каждом клиенте нужно заменить %1 на %2.</translation>
    </message>
    <message>
        <source>apt on the clients refuses to update until the change of %1 is accepted. This command accepts it: %2</source>
        <translation>apt на клиентах отказывается обновлять списки, пока изменение %1 не принято. Эта команда принимает его: %2</translation>
    </message>
    <message>
        <source>apt on the clients tells of the change of Suite from %1 to %2, and old versions of apt refuse it. This command accepts it: %3</source>
        <translation>apt на клиентах сообщает об изменении Suite с %1 на %2, а старые версии apt отвергают его. Эта команда принимает его: %3</translation>
    </message>
    <message>
        <source>Clients that use the folder itself need the new path in the line of the source.</source>
        <translation>Клиентам, которые используют сам каталог, нужен новый путь в строке источника.</translation>
    </message>
    <message>
        <source>Clients must take these components out of the line of the source: %1.</source>
        <translation>Клиенты должны убрать эти компоненты из строки источника: %1.</translation>
    </message>
    <message>
        <source>Clients of these architectures get nothing from the repository any more: %1.</source>
        <translation>Клиенты этих архитектур больше ничего не получат из репозитория: %1.</translation>
    </message>
    <message>
        <source>The repository is not signed any more: apt refuses it unless the line of the source has [trusted=yes].</source>
        <translation>Репозиторий больше не подписан: apt отвергает его, если в строке источника нет [trusted=yes].</translation>
    </message>
    <message>
        <source>The repository is signed from then on: clients need the public key to check that.</source>
        <translation>С этого момента репозиторий подписан: для проверки клиентам нужен открытый ключ.</translation>
    </message>
    <message>
        <source>The lists of the packages&apos; files (Contents) are written in another form.</source>
        <translation>Списки файлов пакетов (Contents) записываются в другом виде.</translation>
    </message>
    <message numerus="yes">
        <source>apt on the clients refuses indices that are older than %n day(s), so the repository must be exported again before that.</source>
        <translation>
            <numerusform>apt на клиентах отвергает индексы старше %n дня, поэтому до этого репозиторий нужно экспортировать снова.</numerusform>
            <numerusform>apt на клиентах отвергает индексы старше %n дней, поэтому до этого репозиторий нужно экспортировать снова.</numerusform>
            <numerusform>apt на клиентах отвергает индексы старше %n дней, поэтому до этого репозиторий нужно экспортировать снова.</numerusform>
        </translation>
    </message>
    <message>
        <source>The repository is signed with another key from then on: apt on the clients refuses it until they have the public part of that key.</source>
        <translation>С этого времени репозиторий подписан другим ключом: apt на клиентах отвергает его, пока у них нет открытой части этого ключа.</translation>
    </message>
</context>
<context>
    <name>DifferenceDialog</name>
    <message>
        <source>Difference</source>
        <translation>Различия</translation>
    </message>
    <message>
        <source>Present file: %1</source>
        <translation>Имеющийся файл: %1</translation>
    </message>
    <message>
        <source>New file: %1</source>
        <translation>Новый файл: %1</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Копировать</translation>
    </message>
    <message>
        <source>apt takes packages of one version for the same, so clients that have the present one would not get the new one. Build it with the version %1, which sorts after %2 and before the next version of its maker.</source>
        <translation>apt считает пакеты одной версии одним и тем же пакетом, поэтому клиенты, у которых есть имеющийся пакет, не получат новый. Соберите его с версией %1: она идёт после %2 и перед следующей версией изготовителя.</translation>
    </message>
    <message>
        <source>Comparing the files...</source>
        <translation>Сравнение файлов...</translation>
    </message>
    <message>
        <source>The packages are too large to compare their files. This is what else differs:</source>
        <translation>Пакеты слишком велики, чтобы сравнить их файлы. Прочие различия:</translation>
    </message>
    <message>
        <source>Both packages hold the same. Only the way in which they were packed differs, such as times or the compression.</source>
        <translation>Содержимое обоих пакетов одинаково. Различается только упаковка, например время или сжатие.</translation>
    </message>
    <message numerus="yes">
        <source>%n difference(s):</source>
        <translation>
            <numerusform>%n различие:</numerusform>
            <numerusform>%n различия:</numerusform>
            <numerusform>%n различий:</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DifferenceModel</name>
    <message>
        <source>Part</source>
        <translation>Часть</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Имя</translation>
    </message>
    <message>
        <source>Present file</source>
        <translation>Имеющийся файл</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>Новый файл</translation>
    </message>
    <message>
        <source>(not there)</source>
        <translation>(отсутствует)</translation>
    </message>
</context>
<context>
    <name>DpkgUtils</name>
    <message>
        <source>&quot;%1&quot; is not a version</source>
        <translation>«%1» не является версией</translation>
    </message>
    <message>
        <source>The process dpkg crashed!</source>
        <translation>Процесс dpkg аварийно завершился!</translation>
    </message>
    <message>
        <source>The control data of the package are too large.</source>
        <translation>Управляющие данные пакета слишком велики.</translation>
    </message>
</context>
<context>
    <name>EmptyPage</name>
    <message>
        <source>No repository is open</source>
        <translation>Нет открытых репозиториев</translation>
    </message>
    <message>
        <source>Create a repository or open one to add packages to it</source>
        <translation>Создайте репозиторий или откройте существующий, чтобы добавлять в него пакеты</translation>
    </message>
</context>
<context>
    <name>ExternalRepoSourceDialog</name>
    <message>
        <source>Add external repo</source>
        <translation>Добавить внешний репозиторий</translation>
    </message>
    <message>
        <source>Change external repo</source>
        <translation>Изменить внешний репозиторий</translation>
    </message>
    <message>
        <source>Address, suite and components, as in a sources list</source>
        <translation>Адрес, выпуск и компоненты, как в списке источников</translation>
    </message>
    <message>
        <source>name to show in place of the address</source>
        <translation>имя, показываемое вместо адреса</translation>
    </message>
    <message>
        <source>&amp;Source line:</source>
        <translation>&amp;Строка источника:</translation>
    </message>
    <message>
        <source>A&amp;lias:</source>
        <translation>&amp;Псевдоним:</translation>
    </message>
</context>
<context>
    <name>ExternalRepos</name>
    <message>
        <source>&quot;%1&quot; is not the address of a repository. It begins with http:, https:, ftp: or file:.</source>
        <translation>«%1» не является адресом репозитория. Адрес начинается с http:, https:, ftp: или file:.</translation>
    </message>
    <message>
        <source>A disc that apt asks for cannot be searched. Mount it and use a file: address.</source>
        <translation>Поиск на диске, который запрашивает apt, невозможен. Смонтируйте его и используйте адрес file:.</translation>
    </message>
    <message>
        <source>The path behind file: begins with a slash and holds no square brackets.</source>
        <translation>Путь после file: начинается с косой черты и не содержит квадратных скобок.</translation>
    </message>
    <message>
        <source>Addresses with &quot;%1:&quot; cannot be used. Use http:, https:, ftp: or file:.</source>
        <translation>Адреса с «%1:» использовать нельзя. Используйте http:, https:, ftp: или file:.</translation>
    </message>
    <message>
        <source>The address names no host, or not as in http://example.org/debian.</source>
        <translation>В адресе не указан узел, или он указан не так, как в http://example.org/debian.</translation>
    </message>
    <message>
        <source>The line holds a line break or another invisible character.</source>
        <translation>Строка содержит перевод строки или другой невидимый символ.</translation>
    </message>
    <message>
        <source>Enter the address, the suite and the components of the repository.</source>
        <translation>Введите адрес, выпуск и компоненты репозитория.</translation>
    </message>
    <message>
        <source>Lines for source packages cannot be used.</source>
        <translation>Строки для пакетов с исходным кодом использовать нельзя.</translation>
    </message>
    <message>
        <source>The character %1 cannot stand in a source line.</source>
        <translation>Символ %1 недопустим в строке источника.</translation>
    </message>
    <message>
        <source>The options in square brackets are not written as in [arch=amd64 trusted=yes].</source>
        <translation>Параметры в квадратных скобках записаны не так, как в [arch=amd64 trusted=yes].</translation>
    </message>
    <message>
        <source>The suite is missing behind the address.</source>
        <translation>После адреса не указан выпуск.</translation>
    </message>
    <message>
        <source>Square brackets stand only around the options, in front of the address.</source>
        <translation>В квадратные скобки заключаются только параметры перед адресом.</translation>
    </message>
    <message>
        <source>A suite that ends in a slash has no components.</source>
        <translation>У выпуска, оканчивающегося косой чертой, нет компонентов.</translation>
    </message>
    <message>
        <source>The components are missing. Only a suite that ends in a slash has none.</source>
        <translation>Не указаны компоненты. Их нет только у выпуска, оканчивающегося косой чертой.</translation>
    </message>
    <message>
        <source>The list has this repository already.</source>
        <translation>Этот репозиторий уже есть в списке.</translation>
    </message>
</context>
<context>
    <name>ExternalReposDialog</name>
    <message>
        <source>No external repositories to show</source>
        <translation>Нет внешних репозиториев</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>&amp;Добавить...</translation>
    </message>
    <message>
        <source>&amp;Edit...</source>
        <translation>&amp;Изменить...</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Удалить</translation>
    </message>
    <message>
        <source>Edit external repos</source>
        <translation>Изменение внешних репозиториев</translation>
    </message>
    <message>
        <source>The repositories that are asked when dependencies are checked, packages are searched for and a repository is upgraded. The sources of the system itself stay as they are.</source>
        <translation>Репозитории, которые опрашиваются при проверке зависимостей, поиске пакетов и обновлении репозитория. Источники самой системы не изменяются.</translation>
    </message>
    <message>
        <source>Asking apt which repositories it knows...</source>
        <translation>Запрос известных apt репозиториев...</translation>
    </message>
    <message>
        <source>External repositories</source>
        <translation>Внешние репозитории</translation>
    </message>
    <message>
        <source>apt does not say which repositories it knows; only stored ones are shown. %1</source>
        <translation>apt не сообщает, какие репозитории ему известны; показаны только сохранённые. %1</translation>
    </message>
    <message>
        <source>What apt knows from the sources of the system cannot be removed here.</source>
        <translation>То, что известно apt из источников системы, здесь удалить нельзя.</translation>
    </message>
    <message>
        <source>apt knows this repository from the sources of the system, so it cannot be changed here.</source>
        <translation>Этот репозиторий известен apt из источников системы, поэтому изменить его здесь нельзя.</translation>
    </message>
</context>
<context>
    <name>ExternalReposModel</name>
    <message>
        <source>Repository</source>
        <translation>Репозиторий</translation>
    </message>
    <message>
        <source>Alias</source>
        <translation>Псевдоним</translation>
    </message>
    <message>
        <source>apt knows this repository from the sources of the system. Here it can be switched off and named, but not changed or removed.</source>
        <translation>Этот репозиторий известен apt из источников системы. Здесь его можно отключить и назвать, но нельзя изменить или удалить.</translation>
    </message>
    <message>
        <source>You added this repository.</source>
        <translation>Этот репозиторий добавили вы.</translation>
    </message>
    <message>
        <source>apt does not know this repository at present. It is asked again when apt knows it.</source>
        <translation>Сейчас этот репозиторий apt неизвестен. Он снова будет опрашиваться, когда станет известен apt.</translation>
    </message>
    <message>
        <source>apt does not know this repository at present.</source>
        <translation>Сейчас этот репозиторий apt неизвестен.</translation>
    </message>
</context>
<context>
    <name>FactsTree</name>
    <message>
        <source>Why it cannot be installed</source>
        <translation>Почему пакет нельзя установить</translation>
    </message>
    <message>
        <source>The reason was not found.</source>
        <translation>Причина не найдена.</translation>
    </message>
    <message>
        <source>Recommended, but cannot be installed together with it</source>
        <translation>Рекомендуется, но нельзя установить вместе с ним</translation>
    </message>
    <message>
        <source>Needed by</source>
        <translation>Нужен пакетам</translation>
    </message>
    <message>
        <source>Looking for packages that need it...</source>
        <translation>Поиск пакетов, которым он нужен...</translation>
    </message>
    <message>
        <source>In the repository %1</source>
        <translation>В репозитории %1</translation>
    </message>
    <message>
        <source>No package of the open repositories needs it.</source>
        <translation>Он не нужен ни одному пакету открытых репозиториев.</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) directly</source>
        <translation>
            <numerusform>%n пакет напрямую</numerusform>
            <numerusform>%n пакета напрямую</numerusform>
            <numerusform>%n пакетов напрямую</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could no longer be installed without it</source>
        <translation>
            <numerusform>%n пакет без него нельзя будет установить</numerusform>
            <numerusform>%n пакета без него нельзя будет установить</numerusform>
            <numerusform>%n пакетов без него нельзя будет установить</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>и ещё %n</numerusform>
            <numerusform>и ещё %n</numerusform>
            <numerusform>и ещё %n</numerusform>
        </translation>
    </message>
    <message>
        <source>Show this package</source>
        <translation>Показать этот пакет</translation>
    </message>
</context>
<context>
    <name>FileListModel</name>
    <message>
        <source>File</source>
        <translation>Файл</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Размер</translation>
    </message>
    <message>
        <source>Permissions</source>
        <translation>Права</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 байт</translation>
    </message>
</context>
<context>
    <name>FilterLine</name>
    <message>
        <source>Remove the filter %1</source>
        <translation>Убрать фильтр %1</translation>
    </message>
    <message>
        <source>Show all</source>
        <translation>Показать все</translation>
    </message>
    <message>
        <source>Remove all filters</source>
        <translation>Убрать все фильтры</translation>
    </message>
    <message>
        <source>%1 of %2 packages shown</source>
        <translation>Показано пакетов: %1 из %2</translation>
    </message>
</context>
<context>
    <name>FoundPackagesModel</name>
    <message>
        <source>Package</source>
        <translation>Пакет</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Архитектура</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Версия</translation>
    </message>
    <message>
        <source>Repository</source>
        <translation>Репозиторий</translation>
    </message>
    <message>
        <source>Here already</source>
        <translation>Уже имеется</translation>
    </message>
    <message>
        <source>%1, the same version</source>
        <translation>%1, та же версия</translation>
    </message>
    <message>
        <source>%1, older</source>
        <translation>%1, старее</translation>
    </message>
    <message>
        <source>%1, newer</source>
        <translation>%1, новее</translation>
    </message>
</context>
<context>
    <name>FurtherFields</name>
    <message>
        <source>More</source>
        <translation>Ещё</translation>
    </message>
    <message>
        <source>Show the rarer fields of the description</source>
        <translation>Показать более редкие поля описания</translation>
    </message>
    <message>
        <source>Origin</source>
        <translation>Происхождение</translation>
    </message>
    <message>
        <source>This required field.
Who makes the packages. Clients can select by it.</source>
        <translation>Это обязательное поле.
Кто делает пакеты. По нему клиенты могут выбирать.</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Метка</translation>
    </message>
    <message>
        <source>This optional field.
Clients can select the repository by it.</source>
        <translation>Это необязательное поле.
По нему клиенты могут выбирать репозиторий.</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Описание</translation>
    </message>
    <message>
        <source>This optional field.
One line that tells what is in the repository.</source>
        <translation>Это необязательное поле.
Строка о том, что находится в репозитории.</translation>
    </message>
    <message>
        <source>Signing key</source>
        <translation>Ключ подписи</translation>
    </message>
    <message>
        <source>The key that signs the repository (apt). Clients need its public part.</source>
        <translation>Ключ, которым подписывается репозиторий (apt). Клиентам нужна его открытая часть.</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Содержание</translation>
    </message>
    <message>
        <source>How the lists of the packages&apos; files are compressed, and what they list.
Without a choice, .gz.</source>
        <translation>Как сжимаются списки файлов пакетов и что в них перечислено.
Без выбора — .gz.</translation>
    </message>
    <message>
        <source>Valid for (days)</source>
        <translation>Действителен (дней)</translation>
    </message>
    <message>
        <source>Clients refuse the repository when its indices have not been written for so many days.</source>
        <translation>Клиенты отвергают репозиторий, если его индексы не записывались столько дней.</translation>
    </message>
    <message>
        <source>Other fields</source>
        <translation>Другие поля</translation>
    </message>
    <message>
        <source>What else is in the description. It stays as it is.</source>
        <translation>Что ещё есть в описании. Это остаётся как есть.</translation>
    </message>
    <message>
        <source>no limit</source>
        <translation>без ограничения</translation>
    </message>
    <message>
        <source>Default key of gpg</source>
        <translation>Ключ gpg по умолчанию</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1 (not listed)</source>
        <translation>%1 (нет в списке)</translation>
    </message>
</context>
<context>
    <name>GatherCommands</name>
    <message>
        <source>Fetch missing packages...</source>
        <translation>Загрузить недостающие пакеты...</translation>
    </message>
    <message>
        <source>Fetch missing packages</source>
        <translation>Загрузить недостающие пакеты</translation>
    </message>
    <message>
        <source>Nothing is missing.</source>
        <translation>Всего хватает.</translation>
    </message>
    <message>
        <source>Nothing can be fetched. %1</source>
        <translation>Загрузить ничего нельзя. %1</translation>
    </message>
</context>
<context>
    <name>GatherDialog</name>
    <message>
        <source>Fetch missing packages</source>
        <translation>Загрузить недостающие пакеты</translation>
    </message>
    <message>
        <source>The chosen packages are fetched and added, so that what needs them finds them in the repository.</source>
        <translation>Выбранные пакеты будут загружены и добавлены, чтобы нужное другим пакетам нашлось в репозитории.</translation>
    </message>
    <message>
        <source>Package</source>
        <translation>Пакет</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Версия</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Архитектура</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Размер</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Источник</translation>
    </message>
    <message>
        <source>Needed by</source>
        <translation>Нужен пакетам</translation>
    </message>
    <message>
        <source>%1 instead of %2</source>
        <translation>%1 вместо %2</translation>
    </message>
    <message>
        <source>What stays missing</source>
        <translation>Чего по-прежнему не хватает</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Предпросмотр...</translation>
    </message>
    <message>
        <source>Selected: %1 of %2, %3</source>
        <translation>Выбрано: %1 из %2, %3</translation>
    </message>
    <message>
        <source>Not needed any more: %1</source>
        <translation>Больше не нужны: %1</translation>
    </message>
</context>
<context>
    <name>GatherJob</name>
    <message>
        <source>Looking for missing packages</source>
        <translation>Поиск недостающих пакетов</translation>
    </message>
    <message>
        <source>It is not known what is missing.</source>
        <translation>Не известно, чего не хватает.</translation>
    </message>
    <message>
        <source>The search for missing packages was stopped.</source>
        <translation>Поиск недостающих пакетов остановлен.</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) to be fetched</source>
        <translation>
            <numerusform>Нужно загрузить %n пакет</numerusform>
            <numerusform>Нужно загрузить %n пакета</numerusform>
            <numerusform>Нужно загрузить %n пакетов</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GatherText</name>
    <message>
        <source>No source offers it.</source>
        <translation>Ни один источник этого не предлагает.</translation>
    </message>
    <message>
        <source>No source offers a version that meets it, but only: %1.</source>
        <translation>Ни один источник не предлагает подходящей версии, есть только: %1.</translation>
    </message>
    <message>
        <source>What would meet it is older than %1 in the repository.</source>
        <translation>Подходящее старше, чем %1 в репозитории.</translation>
    </message>
    <message>
        <source>It needs another version than %1, which another package needs.</source>
        <translation>Нужна не та версия, что %1, которая нужна другому пакету.</translation>
    </message>
    <message>
        <source>apt fetches no lists for the architecture %1.</source>
        <translation>apt не получает списков для архитектуры %1.</translation>
    </message>
    <message>
        <source>apt&apos;s sources offer no installer packages.</source>
        <translation>Источники apt не предлагают пакетов установщика.</translation>
    </message>
    <message>
        <source>What would meet it is not fetched.</source>
        <translation>Подходящее не загружается.</translation>
    </message>
    <message>
        <source>What meets it now is replaced by a newer version.</source>
        <translation>То, что подходит сейчас, заменяется более новой версией.</translation>
    </message>
    <message>
        <source>%1 %2 (%3) needs %4. %5</source>
        <translation>Пакету %1 %2 (%3) нужно: %4. %5</translation>
    </message>
    <message>
        <source>Nothing is missing any more.</source>
        <translation>Теперь всего хватает.</translation>
    </message>
    <message numerus="yes">
        <source>%n dependency(ies) stay unmet.</source>
        <translation>
            <numerusform>Остаётся неудовлетворённой %n зависимость.</numerusform>
            <numerusform>Остаются неудовлетворёнными %n зависимости.</numerusform>
            <numerusform>Остаются неудовлетворёнными %n зависимостей.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 и ещё %n</numerusform>
            <numerusform>%1 и ещё %n</numerusform>
            <numerusform>%1 и ещё %n</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GpgKeysWidget</name>
    <message>
        <source>Start KGpg</source>
        <translation>Запустить KGpg</translation>
    </message>
    <message>
        <source>Package signing key:</source>
        <translation>Ключ для подписи пакетов:</translation>
    </message>
    <message>
        <source>Select GPG key for signing packages. Use KGpg to add/delete GPG keys. After add/delete GPG keys need reload program.</source>
        <translation>Выберите ключ GPG для подписи пакетов. Добавить или удалить ключи GPG можно в KGpg. После добавления или удаления ключей необходимо перезапустить программу.</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>No key is selected</source>
        <translation>Ключ не выбран</translation>
    </message>
    <message>
        <source>The keys are being read</source>
        <translation>Чтение ключей</translation>
    </message>
    <message>
        <source>No keys are listed</source>
        <translation>Ключей нет</translation>
    </message>
    <message>
        <source>No keys are listed (in use: %1)</source>
        <translation>Ключей нет (используется: %1)</translation>
    </message>
    <message>
        <source>%1 (not listed)</source>
        <translation>%1 (нет в списке)</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>Help</source>
        <translation>Справка</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Назад</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Вперёд</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Содержание</translation>
    </message>
    <message>
        <source>Find previous</source>
        <translation>Найти предыдущее</translation>
    </message>
    <message>
        <source>Find next</source>
        <translation>Найти следующее</translation>
    </message>
    <message>
        <source>Larger text</source>
        <translation>Увеличить текст</translation>
    </message>
    <message>
        <source>Smaller text</source>
        <translation>Уменьшить текст</translation>
    </message>
    <message>
        <source>Find in the help</source>
        <translation>Поиск в справке</translation>
    </message>
    <message>
        <source>Help: %1</source>
        <translation>Справка: %1</translation>
    </message>
    <message>
        <source>The help does not hold &quot;%1&quot;.</source>
        <translation>В справке нет «%1».</translation>
    </message>
</context>
<context>
    <name>HelperClient</name>
    <message>
        <source>Failed to add repository to local sources list!</source>
        <translation>Не удалось добавить репозиторий в локальный список источников!</translation>
    </message>
    <message>
        <source>Failed to remove repository from local sources list!</source>
        <translation>Не удалось удалить репозиторий из локального списка источников!</translation>
    </message>
    <message>
        <source>The repository is not published!</source>
        <translation>Репозиторий не опубликован!</translation>
    </message>
    <message>
        <source>The repository is not unpublished!</source>
        <translation>Репозиторий не снят с публикации!</translation>
    </message>
    <message>
        <source>The directory &quot;%1&quot; is not there.</source>
        <translation>Каталог «%1» отсутствует.</translation>
    </message>
    <message>
        <source>This takes the rights of an administrator. If no password was asked for, no authentication agent runs in this session, or a rule of this machine refuses.</source>
        <translation>Для этого нужны права администратора. Если пароль не был запрошен, в этом сеансе не запущен агент аутентификации или правило этого компьютера запрещает действие.</translation>
    </message>
    <message>
        <source>The helper that does this with the rights of an administrator is not installed. Install the package of this program once more.</source>
        <translation>Вспомогательная программа, которая выполняет это с правами администратора, не установлена. Установите пакет этой программы ещё раз.</translation>
    </message>
    <message>
        <source>The system bus cannot be reached. Without it, nothing in the system can be changed. Start the service dbus, then this program once more.</source>
        <translation>Системная шина недоступна. Без неё в системе ничего нельзя изменить. Запустите службу dbus, затем эту программу ещё раз.</translation>
    </message>
</context>
<context>
    <name>HistoryCommands</name>
    <message>
        <source>Undo last change</source>
        <translation>Отменить последнее изменение</translation>
    </message>
    <message>
        <source>Go back to this point</source>
        <translation>Вернуться к этой точке</translation>
    </message>
    <message>
        <source>Bring back this package</source>
        <translation>Вернуть этот пакет</translation>
    </message>
    <message>
        <source>Show difference</source>
        <translation>Показать различия</translation>
    </message>
    <message>
        <source>History</source>
        <translation>История</translation>
    </message>
    <message>
        <source>Show history</source>
        <translation>Показать историю</translation>
    </message>
    <message>
        <source>The history is switched off: no more states are kept.</source>
        <translation>История выключена: состояния больше не сохраняются.</translation>
    </message>
    <message>
        <source>No repository is open.</source>
        <translation>Ни один репозиторий не открыт.</translation>
    </message>
    <message>
        <source>The history is being read...</source>
        <translation>Чтение истории...</translation>
    </message>
    <message>
        <source>Wait until the running job has ended.</source>
        <translation>Подождите, пока закончится текущая задача.</translation>
    </message>
    <message>
        <source>You may not write to this repository.</source>
        <translation>У вас нет права изменять этот репозиторий.</translation>
    </message>
    <message>
        <source>There is no change to undo.</source>
        <translation>Нет изменений, которые можно отменить.</translation>
    </message>
    <message>
        <source>No state was kept to go back to.</source>
        <translation>Нет сохранённого состояния для возврата.</translation>
    </message>
    <message>
        <source>Show the history to choose a point.</source>
        <translation>Покажите историю, чтобы выбрать точку.</translation>
    </message>
    <message>
        <source>Select one point.</source>
        <translation>Выберите одну точку.</translation>
    </message>
    <message>
        <source>The state before this point: %1</source>
        <translation>Состояние до этой точки: %1</translation>
    </message>
    <message>
        <source>Show the history to choose a package.</source>
        <translation>Покажите историю, чтобы выбрать пакет.</translation>
    </message>
    <message>
        <source>Select one package below a point.</source>
        <translation>Выберите один пакет под точкой.</translation>
    </message>
    <message>
        <source>The package has no old version here.</source>
        <translation>У пакета здесь нет старой версии.</translation>
    </message>
    <message>
        <source>Select one point or two.</source>
        <translation>Выберите одну или две точки.</translation>
    </message>
    <message numerus="yes">
        <source>No state was kept between this change and now, so %n change(s) will be undone.</source>
        <translation>
            <numerusform>После этого изменения состояния не сохранялись, поэтому будет отменено %n изменение.</numerusform>
            <numerusform>После этого изменения состояния не сохранялись, поэтому будет отменено %n изменения.</numerusform>
            <numerusform>После этого изменения состояния не сохранялись, поэтому будет отменено %n изменений.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n change(s) will be undone: this one and all later ones.</source>
        <translation>
            <numerusform>Будет отменено %n изменение: это и все более поздние.</numerusform>
            <numerusform>Будет отменено %n изменения: это и все более поздние.</numerusform>
            <numerusform>Будет отменено %n изменений: это и все более поздние.</numerusform>
        </translation>
    </message>
    <message>
        <source>What will change: %1.</source>
        <translation>Что изменится: %1.</translation>
    </message>
    <message>
        <source>What will change is not known, because a record is missing or damaged.</source>
        <translation>Что изменится, неизвестно: запись отсутствует или повреждена.</translation>
    </message>
    <message>
        <source>The description of the repository becomes the old one.</source>
        <translation>Описание репозитория станет прежним.</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Do you want to undo this change?
%1</source>
        <translation>Отменить это изменение?
%1</translation>
    </message>
    <message>
        <source>Do you want to go back to the state before this change?
%1</source>
        <translation>Вернуться к состоянию до этого изменения?
%1</translation>
    </message>
    <message>
        <source>Do you want to bring back %1 %2 (%3)?</source>
        <translation>Вернуть %1 %2 (%3)?</translation>
    </message>
    <message>
        <source>The file is added to component %1. A present version of the package is replaced.</source>
        <translation>Файл будет добавлен в компонент %1. Имеющаяся версия пакета будет заменена.</translation>
    </message>
    <message numerus="yes">
        <source>Do you want to delete %n restore point(s) of this repository?</source>
        <translation>
            <numerusform>Удалить %n точку восстановления этого репозитория?</numerusform>
            <numerusform>Удалить %n точки восстановления этого репозитория?</numerusform>
            <numerusform>Удалить %n точек восстановления этого репозитория?</numerusform>
        </translation>
    </message>
    <message>
        <source>The way back to the states before them is lost. These limits are stored too.</source>
        <translation>Вернуться к состояниям до них будет нельзя. Эти ограничения тоже будут сохранены.</translation>
    </message>
    <message>
        <source>History settings...</source>
        <translation>Настройки истории...</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Предпросмотр...</translation>
    </message>
</context>
<context>
    <name>HistoryModel</name>
    <message>
        <source>Time, package</source>
        <translation>Время, пакет</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Изменение</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Архитектура</translation>
    </message>
    <message>
        <source>Old version</source>
        <translation>Старая версия</translation>
    </message>
    <message>
        <source>New version</source>
        <translation>Новая версия</translation>
    </message>
    <message>
        <source>User, origin</source>
        <translation>Пользователь, источник</translation>
    </message>
    <message>
        <source>State before</source>
        <translation>Состояние до</translation>
    </message>
</context>
<context>
    <name>HistorySettingsDialog</name>
    <message>
        <source>Keep states to go back to</source>
        <translation>Сохранять состояния для возврата</translation>
    </message>
    <message>
        <source>Prune now</source>
        <translation>Очистить сейчас</translation>
    </message>
    <message>
        <source>History</source>
        <translation>История</translation>
    </message>
    <message>
        <source>Before each change of a repository, its state is kept for a way back.</source>
        <translation>Перед каждым изменением репозитория его состояние сохраняется для возврата.</translation>
    </message>
    <message>
        <source>any age</source>
        <translation>любой возраст</translation>
    </message>
    <message>
        <source> MiB</source>
        <translation> МиБ</translation>
    </message>
    <message>
        <source>Restore points at most</source>
        <translation>Не более точек восстановления</translation>
    </message>
    <message>
        <source>Days at most</source>
        <translation>Не более дней</translation>
    </message>
    <message>
        <source>Size at most</source>
        <translation>Не более места</translation>
    </message>
    <message>
        <source>This repository:</source>
        <translation>Этот репозиторий:</translation>
    </message>
    <message numerus="yes">
        <source>%n restore point(s), %1</source>
        <translation>
            <numerusform>%n точка восстановления, %1</numerusform>
            <numerusform>%n точки восстановления, %1</numerusform>
            <numerusform>%n точек восстановления, %1</numerusform>
        </translation>
    </message>
    <message>
        <source>not known</source>
        <translation>неизвестно</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>ничего</translation>
    </message>
    <message>
        <source>Nothing is more than the limits allow.</source>
        <translation>Ничто не превышает ограничений.</translation>
    </message>
    <message>
        <source>Deletes the oldest restore points of this repository.</source>
        <translation>Удаляет самые старые точки восстановления этого репозитория.</translation>
    </message>
    <message>
        <source>Pruning frees:</source>
        <translation>Очистка освободит:</translation>
    </message>
    <message numerus="yes">
        <source>%1 (%n restore point(s))</source>
        <translation>
            <numerusform>%1 (%n точка восстановления)</numerusform>
            <numerusform>%1 (%n точки восстановления)</numerusform>
            <numerusform>%1 (%n точек восстановления)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HistoryText</name>
    <message numerus="yes">
        <source>%n added</source>
        <translation>
            <numerusform>%n добавлен</numerusform>
            <numerusform>%n добавлено</numerusform>
            <numerusform>%n добавлено</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n replaced</source>
        <translation>
            <numerusform>%n заменён</numerusform>
            <numerusform>%n заменено</numerusform>
            <numerusform>%n заменено</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n removed</source>
        <translation>
            <numerusform>%n удалён</numerusform>
            <numerusform>%n удалено</numerusform>
            <numerusform>%n удалено</numerusform>
        </translation>
    </message>
    <message>
        <source>no package changed</source>
        <translation>пакеты не изменены</translation>
    </message>
    <message>
        <source>Added</source>
        <translation>Добавлен</translation>
    </message>
    <message>
        <source>Replaced</source>
        <translation>Заменён</translation>
    </message>
    <message>
        <source>Removed</source>
        <translation>Удалён</translation>
    </message>
    <message>
        <source>Unknown time</source>
        <translation>Время неизвестно</translation>
    </message>
    <message>
        <source>The record is damaged</source>
        <translation>Запись повреждена</translation>
    </message>
    <message>
        <source>Changed by another program</source>
        <translation>Изменено другой программой</translation>
    </message>
    <message>
        <source>Gone back</source>
        <translation>Выполнен возврат</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Изменено</translation>
    </message>
    <message>
        <source>description changed</source>
        <translation>описание изменено</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Kept (%1)</source>
        <translation>Сохранено (%1)</translation>
    </message>
    <message>
        <source>Not kept</source>
        <translation>Не сохранено</translation>
    </message>
    <message>
        <source>Not kept: %1</source>
        <translation>Не сохранено: %1</translation>
    </message>
    <message>
        <source>Before %1: %2</source>
        <translation>До %1: %2</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1: added, version %2</source>
        <translation>%1: добавится, версия %2</translation>
    </message>
    <message>
        <source>%1: %2 becomes %3</source>
        <translation>%1: %2 станет %3</translation>
    </message>
    <message>
        <source>%1: removed, version %2</source>
        <translation>%1: удалится, версия %2</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>и ещё %n</numerusform>
            <numerusform>и ещё %n</numerusform>
            <numerusform>и ещё %n</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HistoryView</name>
    <message>
        <source>Changes of package</source>
        <translation>Изменения пакета</translation>
    </message>
    <message>
        <source>Shows only changes of packages whose name contains this text.</source>
        <translation>Показывает только изменения пакетов, имя которых содержит этот текст.</translation>
    </message>
    <message>
        <source>Restore points</source>
        <translation>Точки восстановления</translation>
    </message>
    <message numerus="yes">
        <source>%n restore point(s), %1</source>
        <translation>
            <numerusform>%n точка восстановления, %1</numerusform>
            <numerusform>%n точки восстановления, %1</numerusform>
            <numerusform>%n точек восстановления, %1</numerusform>
        </translation>
    </message>
    <message>
        <source>%1. %2</source>
        <translation>%1. %2</translation>
    </message>
    <message>
        <source>No point has changed such a package.</source>
        <translation>Ни одна точка не изменила такой пакет.</translation>
    </message>
    <message>
        <source>Each change of this repository will appear here.</source>
        <translation>Здесь появится каждое изменение этого репозитория.</translation>
    </message>
</context>
<context>
    <name>InclusionPreview</name>
    <message>
        <source>Its version %1 cannot be compared with the present version %2.</source>
        <translation>Его версию %1 нельзя сравнить с имеющейся версией %2.</translation>
    </message>
    <message>
        <source>The repository has another file of this name, which further packages use: %1</source>
        <translation>В репозитории есть другой файл с этим именем, который используют другие пакеты: %1</translation>
    </message>
    <message>
        <source>Several of the files are for the same place; only one of them can be there.</source>
        <translation>Несколько файлов предназначены для одного места; там может быть только один из них.</translation>
    </message>
</context>
<context>
    <name>InstallabilityCommands</name>
    <message>
        <source>Complete check</source>
        <translation>Полная проверка</translation>
    </message>
    <message>
        <source>Complete check, against %1</source>
        <translation>Полная проверка, относительно: %1</translation>
    </message>
    <message>
        <source>Complete checks are made against %1.</source>
        <translation>Полные проверки выполняются относительно: %1.</translation>
    </message>
    <message>
        <source>Repository to check against</source>
        <translation>Репозиторий для проверки</translation>
    </message>
    <message>
        <source>%1 is not in the repository any more.</source>
        <translation>%1 больше нет в репозитории.</translation>
    </message>
</context>
<context>
    <name>InstallabilityReport</name>
    <message>
        <source>Complete check</source>
        <translation>Полная проверка</translation>
    </message>
    <message>
        <source>Checked against: %1</source>
        <translation>Основа проверки: %1</translation>
    </message>
    <message>
        <source>Date: %1</source>
        <translation>Дата: %1</translation>
    </message>
    <message>
        <source>The packages, or what they were checked against, have changed since: check again.</source>
        <translation>С тех пор изменились пакеты или основа проверки: проверьте ещё раз.</translation>
    </message>
    <message>
        <source>Packages that can be installed: %1</source>
        <translation>Пакетов, которые можно установить: %1</translation>
    </message>
    <message>
        <source>Packages that cannot be installed: %1</source>
        <translation>Пакетов, которые нельзя установить: %1</translation>
    </message>
    <message>
        <source>Packages undecided: %1</source>
        <translation>Пакетов без решения: %1</translation>
    </message>
    <message>
        <source>Packages not checked: %1</source>
        <translation>Непроверенные пакеты: %1</translation>
    </message>
    <message>
        <source>Most often in the way:</source>
        <translation>Чаще всего мешают:</translation>
    </message>
    <message numerus="yes">
        <source>%1, of %n package(s)</source>
        <translation>
            <numerusform>%1, у %n пакета</numerusform>
            <numerusform>%1, у %n пакетов</numerusform>
            <numerusform>%1, у %n пакетов</numerusform>
        </translation>
    </message>
    <message>
        <source>Recommended, but cannot be installed together with the package:</source>
        <translation>Рекомендуются, но не могут быть установлены вместе с пакетом:</translation>
    </message>
</context>
<context>
    <name>InstallabilityText</name>
    <message>
        <source>%1 needs %2 before it can be unpacked</source>
        <translation>%1 требует %2 ещё до распаковки</translation>
    </message>
    <message>
        <source>%1 needs %2</source>
        <translation>%1 требует %2</translation>
    </message>
    <message>
        <source>every system has %1, because it is essential</source>
        <translation>%1 есть в каждой системе, так как это необходимый пакет</translation>
    </message>
    <message>
        <source>%1 needs %2, provided by %3, before it can be unpacked</source>
        <translation>%1 требует %2 (предоставляет %3) ещё до распаковки</translation>
    </message>
    <message>
        <source>%1 needs %2, provided by %3</source>
        <translation>%1 требует %2 (предоставляет %3)</translation>
    </message>
    <message>
        <source>%1 needs %2 before it can be unpacked; only %3 could meet this</source>
        <translation>%1 требует %2 ещё до распаковки; подойти может только %3</translation>
    </message>
    <message>
        <source>%1 needs %2; only %3 could meet this</source>
        <translation>%1 требует %2; подойти может только %3</translation>
    </message>
    <message>
        <source>%1 needs %2; none of these is at hand as it is needed</source>
        <translation>%1 требует %2; ничего подходящего из этого нет</translation>
    </message>
    <message>
        <source>%1 needs %2; the newest %3 at hand is %4, and nothing meets the other alternatives</source>
        <translation>%1 требует %2; самая новая имеющаяся версия %3 — %4, а остальным вариантам ничего не соответствует</translation>
    </message>
    <message>
        <source>%1 needs %2; nothing at hand is called %3</source>
        <translation>%1 требует %2; пакета с именем %3 нет</translation>
    </message>
    <message>
        <source>%1 needs %2; what is provided by %3 does not meet this</source>
        <translation>%1 требует %2; того, что предоставляет %3, недостаточно</translation>
    </message>
    <message>
        <source>%1 needs %2; the newest %3 at hand is %4</source>
        <translation>%1 требует %2; самая новая имеющаяся версия %3 — %4</translation>
    </message>
    <message>
        <source>%1 needs %2; the oldest %3 at hand is %4</source>
        <translation>%1 требует %2; самая старая имеющаяся версия %3 — %4</translation>
    </message>
    <message>
        <source>%1 needs %2; all that is at hand is %3</source>
        <translation>%1 требует %2; имеется только %3</translation>
    </message>
    <message>
        <source>%1 needs %2; %3 is at hand only for %4</source>
        <translation>%1 требует %2; %3 имеется только для %4</translation>
    </message>
    <message>
        <source>%1 needs %2; the field Multi-Arch of %3 does not allow this</source>
        <translation>%1 требует %2; поле Multi-Arch пакета %3 этого не позволяет</translation>
    </message>
    <message>
        <source>%1 cannot be installed together with %2</source>
        <translation>%1 нельзя установить вместе с %2</translation>
    </message>
    <message>
        <source>%1 conflicts with %2, provided by %3</source>
        <translation>%1 конфликтует с %2 (предоставляет %3)</translation>
    </message>
    <message>
        <source>%1 breaks %2, provided by %3</source>
        <translation>%1 ломает %2 (предоставляет %3)</translation>
    </message>
    <message>
        <source>%1 conflicts with %2, which is true of %3</source>
        <translation>%1 конфликтует с %2, под это подпадает %3</translation>
    </message>
    <message>
        <source>%1 breaks %2, which is true of %3</source>
        <translation>%1 ломает %2, под это подпадает %3</translation>
    </message>
    <message>
        <source>%1 conflicts with %2</source>
        <translation>%1 конфликтует с %2</translation>
    </message>
    <message>
        <source>%1 breaks %2</source>
        <translation>%1 ломает %2</translation>
    </message>
    <message>
        <source>%1 conflicts with %2, and %3 is %4</source>
        <translation>%1 конфликтует с %2, а версия %3 — %4</translation>
    </message>
    <message>
        <source>%1 breaks %2, and %3 is %4</source>
        <translation>%1 ломает %2, а версия %3 — %4</translation>
    </message>
    <message>
        <source>only one version of %1 can be installed: %2 exclude each other</source>
        <translation>можно установить только одну версию %1: %2 исключают друг друга</translation>
    </message>
    <message>
        <source>%1 cannot be installed for %2 at the same time</source>
        <translation>%1 нельзя установить одновременно для %2</translation>
    </message>
    <message>
        <source>%1 cannot be installed at the same time</source>
        <translation>%1 нельзя установить одновременно</translation>
    </message>
    <message>
        <source>can be installed</source>
        <translation>можно установить</translation>
    </message>
    <message>
        <source>cannot be installed</source>
        <translation>нельзя установить</translation>
    </message>
    <message numerus="yes">
        <source>undecided after %n second(s)</source>
        <translation>
            <numerusform>не решено за %n секунду</numerusform>
            <numerusform>не решено за %n секунды</numerusform>
            <numerusform>не решено за %n секунд</numerusform>
        </translation>
    </message>
    <message>
        <source>not checked</source>
        <translation>не проверено</translation>
    </message>
    <message>
        <source>the repository alone</source>
        <translation>только репозиторий</translation>
    </message>
    <message>
        <source>the repository and the essential packages of the public sources</source>
        <translation>репозиторий и необходимые пакеты общедоступных источников</translation>
    </message>
    <message>
        <source>the repository and the public sources</source>
        <translation>репозиторий и общедоступные источники</translation>
    </message>
    <message>
        <source>the repository and the repository %1</source>
        <translation>репозиторий и репозиторий %1</translation>
    </message>
    <message>
        <source>%1, on a system that also takes packages for %2</source>
        <translation>%1, в системе, которая принимает и пакеты для %2</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 и ещё %n</numerusform>
            <numerusform>%1 и ещё %n</numerusform>
            <numerusform>%1 и ещё %n</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 and %2</source>
        <translation>%1 и %2</translation>
    </message>
    <message>
        <source>undecided: there are too many relations between packages</source>
        <translation>не решено: между пакетами слишком много связей</translation>
    </message>
</context>
<context>
    <name>InstallabilityView</name>
    <message>
        <source>What comes along</source>
        <translation>Что устанавливается вместе</translation>
    </message>
    <message>
        <source>Reasons and needs</source>
        <translation>Причины и потребности</translation>
    </message>
    <message>
        <source>Check again</source>
        <translation>Проверить снова</translation>
    </message>
    <message>
        <source>Complete check</source>
        <translation>Полная проверка</translation>
    </message>
    <message>
        <source>Not checked yet: press &quot;%1&quot;. This finds out whether the package can really be installed, with all that it needs.</source>
        <translation>Ещё не проверено: нажмите «%1». Проверка покажет, можно ли действительно установить пакет со всем, что ему нужно.</translation>
    </message>
    <message>
        <source>Checked: %1, against %2</source>
        <translation>Проверено: %1, относительно: %2</translation>
    </message>
    <message>
        <source>Packages have changed since: press &quot;%1&quot;.</source>
        <translation>С тех пор пакеты изменились: нажмите «%1».</translation>
    </message>
    <message>
        <source>Looking for cures...</source>
        <translation>Поиск способов исправления...</translation>
    </message>
    <message>
        <source>Working out what comes along...</source>
        <translation>Определяется, что устанавливается вместе...</translation>
    </message>
    <message>
        <source>What comes along is not known any more: check again.</source>
        <translation>Что устанавливается вместе, больше не известно: проверьте снова.</translation>
    </message>
    <message>
        <source>No single change of the repository would cure this.</source>
        <translation>Ни одно изменение репозитория само по себе не поможет.</translation>
    </message>
    <message>
        <source>What would cure it:</source>
        <translation>Что поможет:</translation>
    </message>
    <message>
        <source>A first step to cure it:</source>
        <translation>Первый шаг к исправлению:</translation>
    </message>
    <message>
        <source>%1 (another contradiction is left then)</source>
        <translation>%1 (останется другое противоречие)</translation>
    </message>
</context>
<context>
    <name>JobFeedback</name>
    <message>
        <source>Stop</source>
        <translation>Остановить</translation>
    </message>
</context>
<context>
    <name>LocalCandidates</name>
    <message>
        <source>Local</source>
        <translation>Локальный</translation>
    </message>
</context>
<context>
    <name>LocalSourceCommand</name>
    <message>
        <source>Looking how apt of this machine can use the repository</source>
        <translation>Проверка того, как apt этого компьютера может использовать репозиторий</translation>
    </message>
    <message>
        <source>Choose a server type, then add the repository once more.</source>
        <translation>Выберите тип сервера и добавьте репозиторий ещё раз.</translation>
    </message>
    <message>
        <source>Waiting for the system to change the local sources list</source>
        <translation>Ожидание изменения локального списка источников</translation>
    </message>
    <message>
        <source>Repository is added to local sources list.</source>
        <translation>Репозиторий добавлен в локальный список источников.</translation>
    </message>
    <message>
        <source>Local sources list</source>
        <translation>Локальный список источников</translation>
    </message>
    <message>
        <source>The repository has no signature that can be checked, and other users of this machine can change it. Do you want to add it all the same?</source>
        <translation>У репозитория нет подписи, которую можно проверить, и его могут изменить другие пользователи этого компьютера. Всё равно добавить его?</translation>
    </message>
    <message>
        <source>As long as the line is in the list, they decide what is installed with the rights of root. Sign the repository, or see to it that nobody else may write in %1 and in the folders above.</source>
        <translation>Пока строка остаётся в списке, они решают, что устанавливается с правами root. Подпишите репозиторий или сделайте так, чтобы никто другой не мог писать в %1 и в вышестоящие папки.</translation>
    </message>
    <message>
        <source>As long as the line is in the list, whoever gets hold of the port %1 on this machine decides what is installed with the rights of root; any user can when the repository is not published. Sign the repository, or keep it in a folder of a local disk.</source>
        <translation>Пока строка остаётся в списке, тот, кто занял порт %1 на этом компьютере, решает, что устанавливается с правами root; если репозиторий не опубликован, это может сделать любой пользователь. Подпишите репозиторий или храните его в папке на локальном диске.</translation>
    </message>
    <message>
        <source>The repository is not published now.</source>
        <translation>Сейчас репозиторий не опубликован.</translation>
    </message>
    <message>
        <source>The repository has no signature that can be checked, and apt of this machine can only get it over the network. Do you want to add it all the same?</source>
        <translation>У репозитория нет подписи, которую можно проверить, и apt этого компьютера может получить его только по сети. Всё равно добавить его?</translation>
    </message>
    <message>
        <source>Repository is removed from local sources list.</source>
        <translation>Репозиторий удалён из локального списка источников.</translation>
    </message>
    <message>
        <source>The local sources list still has a line of this repository, which was changed by hand. Remove it with an editor.</source>
        <translation>В локальном списке источников осталась строка этого репозитория, изменённая вручную. Удалите её в текстовом редакторе.</translation>
    </message>
    <message>
        <source>This machine&apos;s own apt uses the publication that ends. Do you want to remove its line from the local sources list?</source>
        <translation>apt этого компьютера использует публикацию, которая прекращается. Удалить её строку из локального списка источников?</translation>
    </message>
    <message>
        <source>If the line stays, apt reports an error at each update, and with trusted=yes whoever takes the port decides what is installed with the rights of root.</source>
        <translation>Если строка останется, apt будет сообщать об ошибке при каждом обновлении, а при trusted=yes занявший порт решает, что устанавливается с правами root.</translation>
    </message>
    <message>
        <source>Choose HTTP as the server type, then add the repository once more: apt of this machine has no FTP.</source>
        <translation>Выберите тип сервера HTTP и добавьте репозиторий ещё раз: apt на этом компьютере не умеет работать по FTP.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>File</source>
        <translation>Файл</translation>
    </message>
    <message>
        <source>Recent repositories</source>
        <translation>Недавние репозитории</translation>
    </message>
    <message>
        <source>Dependences checking</source>
        <translation>Проверка зависимостей</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Экспорт</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Импорт</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Правка</translation>
    </message>
    <message>
        <source>Publication</source>
        <translation>Публикация</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Настройки</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Вид</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Справка</translation>
    </message>
    <message>
        <source>Tool bar</source>
        <translation>Панель инструментов</translation>
    </message>
    <message>
        <source>New repository...</source>
        <translation>Создать репозиторий...</translation>
    </message>
    <message>
        <source>New repository</source>
        <translation>Создать репозиторий</translation>
    </message>
    <message>
        <source>Open repository...</source>
        <translation>Открыть репозиторий...</translation>
    </message>
    <message>
        <source>Open repository</source>
        <translation>Открыть репозиторий</translation>
    </message>
    <message>
        <source>Remove repository</source>
        <translation>Удалить репозиторий</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Выход</translation>
    </message>
    <message>
        <source>Add packages...</source>
        <translation>Добавить пакеты...</translation>
    </message>
    <message>
        <source>Add packages</source>
        <translation>Добавить пакеты</translation>
    </message>
    <message>
        <source>Remove packages...</source>
        <translation>Удалить пакеты...</translation>
    </message>
    <message>
        <source>Remove packages</source>
        <translation>Удалить пакеты</translation>
    </message>
    <message>
        <source>Publish repository</source>
        <translation>Опубликовать репозиторий</translation>
    </message>
    <message>
        <source>Unpublish repository</source>
        <translation>Снять репозиторий с публикации</translation>
    </message>
    <message>
        <source>About</source>
        <translation>О программе</translation>
    </message>
    <message>
        <source>Change repository...</source>
        <translation>Изменить репозиторий...</translation>
    </message>
    <message>
        <source>Add src list</source>
        <translation>Добавить в список источников</translation>
    </message>
    <message>
        <source>Add repository to local sources list</source>
        <translation>Добавить репозиторий в локальный список источников</translation>
    </message>
    <message>
        <source>Remove src list</source>
        <translation>Удалить из списка источников</translation>
    </message>
    <message>
        <source>Remove repository from local sources list</source>
        <translation>Удалить репозиторий из локального списка источников</translation>
    </message>
    <message>
        <source>Package add settings...</source>
        <translation>Настройки добавления пакетов...</translation>
    </message>
    <message>
        <source>Parameters...</source>
        <translation>Параметры...</translation>
    </message>
    <message>
        <source>Sign package(s)</source>
        <translation>Подписать пакет(ы)</translation>
    </message>
    <message>
        <source>Local repository</source>
        <translation>Локальный репозиторий</translation>
    </message>
    <message>
        <source>Public repositories</source>
        <translation>Общедоступные репозитории</translation>
    </message>
    <message>
        <source>All repositories</source>
        <translation>Все репозитории</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Отключить</translation>
    </message>
    <message>
        <source>Check depends</source>
        <translation>Проверить зависимости</translation>
    </message>
    <message>
        <source>Add package to local repository</source>
        <translation>Добавить пакет в локальный репозиторий</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Содержание</translation>
    </message>
    <message>
        <source>Export all packages</source>
        <translation>Экспортировать все пакеты</translation>
    </message>
    <message>
        <source>Export repository</source>
        <translation>Экспортировать репозиторий</translation>
    </message>
    <message>
        <source>Export selected packages</source>
        <translation>Экспортировать выбранные пакеты</translation>
    </message>
    <message>
        <source>Export repo</source>
        <translation>Экспортировать репозиторий</translation>
    </message>
    <message>
        <source>Import repository</source>
        <translation>Импортировать репозиторий</translation>
    </message>
    <message>
        <source>Import packages from archive</source>
        <translation>Импортировать пакеты из архива</translation>
    </message>
    <message>
        <source>Edit sources lists</source>
        <translation>Изменить списки источников</translation>
    </message>
    <message>
        <source>Add package from external repo</source>
        <translation>Добавить пакет из внешнего репозитория</translation>
    </message>
    <message>
        <source>Edit external repos...</source>
        <translation>Изменить внешние репозитории...</translation>
    </message>
    <message>
        <source>Show published repos</source>
        <translation>Показать опубликованные репозитории</translation>
    </message>
    <message>
        <source>Export package with depends</source>
        <translation>Экспортировать пакет с зависимостями</translation>
    </message>
    <message>
        <source>Upgrade Repository</source>
        <translation>Обновить репозиторий</translation>
    </message>
    <message>
        <source>View...</source>
        <translation>Вид...</translation>
    </message>
    <message>
        <source>Hide status line</source>
        <translation>Скрыть строку состояния</translation>
    </message>
    <message>
        <source>Changes the visibility of widget with dependencies counter</source>
        <translation>Показывает или скрывает строку со счётчиками зависимостей</translation>
    </message>
    <message>
        <source>Check depends in all repos</source>
        <translation>Зависимости проверяются во всех репозиториях</translation>
    </message>
    <message>
        <source>Check depends in public repos</source>
        <translation>Зависимости проверяются в общедоступных репозиториях</translation>
    </message>
    <message>
        <source>Check depends in local repo</source>
        <translation>Зависимости проверяются в локальном репозитории</translation>
    </message>
    <message>
        <source>Dependces checking disabled</source>
        <translation>Проверка зависимостей отключена</translation>
    </message>
    <message>
        <source>Extended log</source>
        <translation>Подробный журнал</translation>
    </message>
    <message>
        <source>Show extended log</source>
        <translation>Показать подробный журнал</translation>
    </message>
    <message>
        <source>About Qt</source>
        <translation>О Qt</translation>
    </message>
    <message>
        <source>This program uses Qt version %1, a toolkit for applications under the GNU Lesser General Public License, version 3. See https://www.qt.io.</source>
        <translation>Эта программа использует Qt версии %1 — набор инструментов для разработки приложений, распространяемый на условиях GNU Lesser General Public License версии 3. См. https://www.qt.io.</translation>
    </message>
    <message>
        <source>The help pages are not installed.</source>
        <translation>Страницы справки не установлены.</translation>
    </message>
    <message>
        <source>The marks of the packages are those of the last check until the next one.</source>
        <translation>До следующей проверки значки пакетов показывают итог последней.</translation>
    </message>
    <message>
        <source>Select all packages</source>
        <translation>Выбрать все пакеты</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Перечитать</translation>
    </message>
</context>
<context>
    <name>MissingPackage</name>
    <message>
        <source>Package %1 is not installed! Do you want to install it?</source>
        <translation>Пакет %1 не установлен! Установить его?</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Ошибка</translation>
    </message>
    <message>
        <source>The package manager synaptic cannot be started. Install the package %1 in another way.</source>
        <translation>Не удалось запустить менеджер пакетов synaptic. Установите пакет %1 другим способом.</translation>
    </message>
    <message>
        <source>The program %1 cannot be started.</source>
        <translation>Не удалось запустить программу %1.</translation>
    </message>
</context>
<context>
    <name>NewRepoDialog</name>
    <message>
        <source>Repository creation</source>
        <translation>Создание репозитория</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Путь</translation>
    </message>
    <message>
        <source>Select a directory to create the repository</source>
        <translation>Выберите каталог, в котором будет создан репозиторий</translation>
    </message>
    <message>
        <source>Repository information</source>
        <translation>Сведения о репозитории</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Имя</translation>
    </message>
    <message>
        <source>This required field.</source>
        <translation>Это поле обязательно.</translation>
    </message>
    <message>
        <source>Code name</source>
        <translation>Кодовое имя</translation>
    </message>
    <message>
        <source>Suite</source>
        <translation>Выпуск</translation>
    </message>
    <message>
        <source>This optional field.
Value: oldstable, stable, testing, unstable, current, experimental.</source>
        <translation>Это поле необязательно.
Значения: oldstable, stable, testing, unstable, current, experimental.</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Версия</translation>
    </message>
    <message>
        <source>This optional field.
Example: 1.0.2</source>
        <translation>Это поле необязательно.
Пример: 1.0.2</translation>
    </message>
    <message>
        <source>Architectures</source>
        <translation>Архитектуры</translation>
    </message>
    <message>
        <source>This required field. 
One or more values</source>
        <translation>Это поле обязательно.
Одно или несколько значений</translation>
    </message>
    <message>
        <source>Components</source>
        <translation>Компоненты</translation>
    </message>
    <message>
        <source>This required field.
One or more values</source>
        <translation>Это поле обязательно.
Одно или несколько значений</translation>
    </message>
    <message>
        <source>Create Contets-*.gz file</source>
        <translation>Создавать файл Contents-*.gz</translation>
    </message>
    <message>
        <source>Sign the repository (apt)</source>
        <translation>Подписывать репозиторий (apt)</translation>
    </message>
    <message>
        <source>Start KGpg</source>
        <translation>Запустить KGpg</translation>
    </message>
    <message>
        <source>Will be use default GPG key for signing repository (apt). Use KGpg to select default GPG key.</source>
        <translation>Для подписи репозитория (apt) будет использоваться ключ GPG по умолчанию. Выбрать его можно в KGpg.</translation>
    </message>
    <message>
        <source>Repository change</source>
        <translation>Изменение репозитория</translation>
    </message>
    <message>
        <source>Repository import</source>
        <translation>Импорт репозитория</translation>
    </message>
    <message>
        <source>Small letters a to z, digits and the characters %1 are allowed here.</source>
        <translation>Здесь допускаются строчные буквы от a до z, цифры и символы %1.</translation>
    </message>
    <message>
        <source>Small letters a to z, digits and hyphens are allowed here; one blank separates two values.</source>
        <translation>Здесь допускаются строчные буквы от a до z, цифры и дефисы; значения разделяются одним пробелом.</translation>
    </message>
    <message>
        <source>It looks like you are trying to edit a published repository. Please unpublish the repository first.</source>
        <translation>Похоже, вы пытаетесь изменить опубликованный репозиторий. Сначала снимите его с публикации.</translation>
    </message>
    <message>
        <source>Please fill all required fields!</source>
        <translation>Заполните все обязательные поля!</translation>
    </message>
    <message>
        <source>Architecture &quot;all&quot; is unallowable!</source>
        <translation>Архитектура «all» недопустима!</translation>
    </message>
    <message>
        <source>The path must be absolute: it starts with a slash.</source>
        <translation>Путь должен быть абсолютным, то есть начинаться с косой черты.</translation>
    </message>
    <message>
        <source>The name or the code name cannot be used. They consist of letters, digits, dots, hyphens and underscores.</source>
        <translation>Имя или кодовое имя недопустимо. Они состоят из букв, цифр, точек, дефисов и знаков подчёркивания.</translation>
    </message>
    <message>
        <source>Changing fields Codename, Architectures, Components may result in packages deletion. Want to continue?</source>
        <translation>Изменение полей «Кодовое имя», «Архитектуры», «Компоненты» может привести к удалению пакетов. Продолжить?</translation>
    </message>
    <message>
        <source>It holds a repository. Everything in it will be deleted.</source>
        <translation>В нём находится репозиторий. Всё его содержимое будет удалено.</translation>
    </message>
    <message>
        <source>It holds no repository. Everything in it will be deleted.</source>
        <translation>Репозитория в нём нет. Всё его содержимое будет удалено.</translation>
    </message>
    <message>
        <source>The directory %1 already exists. Replace it?</source>
        <translation>Каталог %1 уже существует. Заменить его?</translation>
    </message>
    <message>
        <source>Overwriting a published repository</source>
        <translation>Перезапись опубликованного репозитория</translation>
    </message>
    <message>
        <source>You are trying to overwrite a published repository. It is highly recommended to first unpublish the repository and then make changes. Click &quot;Yes&quot; only if you know what you are doing. Continue?</source>
        <translation>Вы пытаетесь перезаписать опубликованный репозиторий. Настоятельно рекомендуется сначала снять репозиторий с публикации и только потом вносить изменения. Нажимайте «Да», только если уверены в своих действиях. Продолжить?</translation>
    </message>
    <message>
        <source>Do you want to move the repository from %1 to %2?</source>
        <translation>Переместить репозиторий из %1 в %2?</translation>
    </message>
    <message>
        <source>The directory %1 cannot be replaced, because it holds these repositories: %2</source>
        <translation>Каталог %1 нельзя заменить, потому что в нём находятся эти репозитории: %2</translation>
    </message>
    <message>
        <source>No package will be deleted.</source>
        <translation>Пакеты удалены не будут.</translation>
    </message>
    <message numerus="yes">
        <source>All %n package(s) will be deleted: %1</source>
        <translation>
            <numerusform>Все пакеты (%n) будут удалены: %1</numerusform>
            <numerusform>Все пакеты (%n) будут удалены: %1</numerusform>
            <numerusform>Все пакеты (%n) будут удалены: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) will be deleted: %1</source>
        <translation>
            <numerusform>Будет удалён %n пакет: %1</numerusform>
            <numerusform>Будут удалены %n пакета: %1</numerusform>
            <numerusform>Будут удалены %n пакетов: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Carry the packages over to the new code name</source>
        <translation>&amp;Перенести пакеты на новое кодовое имя</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Предпросмотр...</translation>
    </message>
</context>
<context>
    <name>OrphanedLines</name>
    <message>
        <source>These lines of this machine&apos;s local sources list lead to ports on which nothing is published. apt reports an error for them, and with trusted=yes whoever takes the port decides what is installed with the rights of root:</source>
        <translation>Эти строки локального списка источников этого компьютера ведут к портам, на которых ничего не опубликовано. apt сообщает для них об ошибке, а при trusted=yes занявший порт решает, что устанавливается с правами root:</translation>
    </message>
    <message>
        <source>Lines without a publication</source>
        <translation>Строки без публикации</translation>
    </message>
    <message>
        <source>&amp;Remove line</source>
        <translation>&amp;Удалить строку</translation>
    </message>
</context>
<context>
    <name>PackageColumns</name>
    <message>
        <source>not checked</source>
        <translation>не проверено</translation>
    </message>
    <message>
        <source>not satisfied</source>
        <translation>не удовлетворены</translation>
    </message>
    <message>
        <source>satisfied</source>
        <translation>удовлетворены</translation>
    </message>
    <message>
        <source>cannot be installed</source>
        <translation>нельзя установить</translation>
    </message>
    <message>
        <source>undecided</source>
        <translation>не решено</translation>
    </message>
    <message>
        <source>Packages</source>
        <translation>Пакеты</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Версия</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Архитектура</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Размер</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Состояние</translation>
    </message>
    <message>
        <source>Signature</source>
        <translation>Подпись</translation>
    </message>
    <message>
        <source>Added</source>
        <translation>Добавлен</translation>
    </message>
    <message>
        <source>Unsigned</source>
        <translation>Не подписан</translation>
    </message>
</context>
<context>
    <name>PackageCommands</name>
    <message>
        <source>Not added: %1</source>
        <translation>Не добавлено: %1</translation>
    </message>
    <message>
        <source>No repository</source>
        <translation>Нет репозитория</translation>
    </message>
    <message>
        <source>There are no repositories to add a package to</source>
        <translation>Нет репозиториев, в которые можно добавить пакет</translation>
    </message>
    <message>
        <source>Choose repository</source>
        <translation>Выбор репозитория</translation>
    </message>
    <message>
        <source>Select the repository to add the package(s) to:</source>
        <translation>Выберите репозиторий, в который будут добавлены пакеты:</translation>
    </message>
    <message>
        <source>(%1)</source>
        <translation>(%1)</translation>
    </message>
    <message>
        <source>Adding Packages%1</source>
        <translation>Добавление пакетов %1</translation>
    </message>
    <message>
        <source>Packages (*.deb *.udeb)</source>
        <translation>Пакеты (*.deb *.udeb)</translation>
    </message>
    <message>
        <source>Only packages can be added: files whose name ends in .deb or .udeb, in small letters.</source>
        <translation>Добавлять можно только пакеты — файлы, имена которых оканчиваются на .deb или .udeb (строчными буквами).</translation>
    </message>
    <message>
        <source>Remove confirmation</source>
        <translation>Подтверждение удаления</translation>
    </message>
    <message>
        <source>Do you want to remove selected packages?</source>
        <translation>Удалить выбранные пакеты?</translation>
    </message>
    <message>
        <source>Will be added next: %1</source>
        <translation>Далее будет добавлено: %1</translation>
    </message>
    <message>
        <source>There are no packages in what was dropped.</source>
        <translation>В том, что вы перетащили, нет пакетов.</translation>
    </message>
    <message>
        <source>Adding packages</source>
        <translation>Добавление пакетов</translation>
    </message>
    <message numerus="yes">
        <source>Do you want to add %n package(s)?</source>
        <translation>
            <numerusform>Добавить %n пакет?</numerusform>
            <numerusform>Добавить %n пакета?</numerusform>
            <numerusform>Добавить %n пакетов?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n of them from %1</source>
        <translation>
            <numerusform>%n из них — из %1</numerusform>
            <numerusform>%n из них — из %1</numerusform>
            <numerusform>%n из них — из %1</numerusform>
        </translation>
    </message>
    <message>
        <source>You cannot change the repository %1: its files belong to another user, or its disk is read-only.</source>
        <translation>Вы не можете изменить репозиторий %1: его файлы принадлежат другому пользователю или его диск доступен только для чтения.</translation>
    </message>
</context>
<context>
    <name>PackageContentsDialog</name>
    <message>
        <source>Changelog</source>
        <translation>Журнал изменений</translation>
    </message>
    <message>
        <source>Copyright</source>
        <translation>Авторские права</translation>
    </message>
    <message>
        <source>Control files</source>
        <translation>Управляющие файлы</translation>
    </message>
    <message>
        <source>Contents of %1</source>
        <translation>Содержимое %1</translation>
    </message>
    <message>
        <source>Search in this page</source>
        <translation>Поиск на этой странице</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Файлы</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Копировать</translation>
    </message>
    <message>
        <source>Reading %1...</source>
        <translation>Чтение %1...</translation>
    </message>
    <message>
        <source>The file %1 cannot be read, or it is damaged.</source>
        <translation>Файл %1 нельзя прочитать, или он повреждён.</translation>
    </message>
    <message>
        <source>The documentation of this package is in the package %1.</source>
        <translation>Документация этого пакета находится в пакете %1.</translation>
    </message>
    <message>
        <source>The package has no changelog.</source>
        <translation>В пакете нет журнала изменений.</translation>
    </message>
    <message>
        <source>The package has no file about its copyright.</source>
        <translation>В пакете нет файла об авторских правах.</translation>
    </message>
    <message numerus="yes">
        <source>Found %n time(s)</source>
        <translation>
            <numerusform>Найдено %n раз</numerusform>
            <numerusform>Найдено %n раза</numerusform>
            <numerusform>Найдено %n раз</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2 files</source>
        <translation>Файлов: %1 из %2</translation>
    </message>
    <message>
        <source>The package is very large. Not all of it was read.</source>
        <translation>Пакет очень большой. Он прочитан не полностью.</translation>
    </message>
</context>
<context>
    <name>PackageDependItem</name>
    <message>
        <source>%1 Provided by ...</source>
        <translation>%1 предоставляется ...</translation>
    </message>
    <message>
        <source>Provided by ... </source>
        <translation>предоставляется ... </translation>
    </message>
    <message>
        <source>%1 offers %2</source>
        <translation>%1 предлагает %2</translation>
    </message>
    <message>
        <source>needs %1, %2 offers %3</source>
        <translation>требуется %1, %2 предлагает %3</translation>
    </message>
    <message>
        <source>%1 does not offer it</source>
        <translation>%1 его не предлагает</translation>
    </message>
</context>
<context>
    <name>PackageDetails</name>
    <message numerus="yes">
        <source>%n package(s): %1</source>
        <translation>
            <numerusform>%n пакет: %1</numerusform>
            <numerusform>%n пакета: %1</numerusform>
            <numerusform>%n пакетов: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>PackageDifference</name>
    <message>
        <source>%1 bytes, mode %2, SHA-256 %3</source>
        <translation>%1 байт, права %2, SHA-256 %3</translation>
    </message>
    <message>
        <source>link to %1</source>
        <translation>ссылка на %1</translation>
    </message>
    <message>
        <source>folder, mode %1</source>
        <translation>папка, права %1</translation>
    </message>
    <message>
        <source>special file, mode %1</source>
        <translation>специальный файл, права %1</translation>
    </message>
    <message>
        <source>The file %1 cannot be read.</source>
        <translation>Не удаётся прочитать файл %1.</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>Поле</translation>
    </message>
    <message>
        <source>Control file</source>
        <translation>Управляющий файл</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Файл</translation>
    </message>
</context>
<context>
    <name>PackageExtractor</name>
    <message>
        <source>The packages in the archive need more room than there is: unpacking was given up at %1. %2 are left in %3, and %4 have to stay free.</source>
        <translation>Пакетам в архиве нужно больше места, чем есть: распаковка прекращена на %1. В %3 осталось %2, а %4 должно оставаться свободным.</translation>
    </message>
</context>
<context>
    <name>PackageFacts</name>
    <message>
        <source>%1 (%2 bytes)</source>
        <translation>%1 (%2 байт)</translation>
    </message>
</context>
<context>
    <name>PackageFile</name>
    <message>
        <source>The file is damaged: its end is missing.</source>
        <translation>Файл повреждён: отсутствует его конец.</translation>
    </message>
    <message>
        <source>Its control data lack the package&apos;s name, version or architecture.</source>
        <translation>В его управляющих данных не указаны имя, версия или архитектура пакета.</translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <translation>Такого файла нет.</translation>
    </message>
    <message>
        <source>Its name does not end in .deb or .udeb.</source>
        <translation>Его имя не оканчивается на .deb или .udeb.</translation>
    </message>
    <message>
        <source>It is no regular file.</source>
        <translation>Это не обычный файл.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Файл пуст.</translation>
    </message>
    <message>
        <source>The file is damaged: what it contains cannot be unpacked.</source>
        <translation>Файл повреждён: его содержимое не распаковывается.</translation>
    </message>
</context>
<context>
    <name>PackageFileCommands</name>
    <message>
        <source>Package file</source>
        <translation>Файл пакета</translation>
    </message>
    <message>
        <source>Contents...</source>
        <translation>Содержимое...</translation>
    </message>
    <message>
        <source>Save package as...</source>
        <translation>Сохранить пакет как...</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>Открыть папку</translation>
    </message>
    <message>
        <source>Copy name</source>
        <translation>Копировать имя</translation>
    </message>
    <message>
        <source>Copy as apt command</source>
        <translation>Копировать как команду apt</translation>
    </message>
    <message>
        <source>Save packages into a folder</source>
        <translation>Сохранение пакетов в папку</translation>
    </message>
    <message>
        <source>Save package as</source>
        <translation>Сохранение пакета</translation>
    </message>
    <message>
        <source>Packages (%1)</source>
        <translation>Пакеты (%1)</translation>
    </message>
    <message>
        <source>These packages are left out: a file of the same name is saved.</source>
        <translation>Эти пакеты пропускаются: сохраняется файл с тем же именем.</translation>
    </message>
    <message>
        <source>Save packages</source>
        <translation>Сохранение пакетов</translation>
    </message>
    <message numerus="yes">
        <source>Do you want to replace %n file(s) in %1?</source>
        <translation>
            <numerusform>Заменить %n файл в %1?</numerusform>
            <numerusform>Заменить %n файла в %1?</numerusform>
            <numerusform>Заменить %n файлов в %1?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Saving %n package(s)...</source>
        <translation>
            <numerusform>Сохранение %n пакета...</numerusform>
            <numerusform>Сохранение %n пакетов...</numerusform>
            <numerusform>Сохранение %n пакетов...</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Сохранено: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) saved.</source>
        <translation>
            <numerusform>%n пакет сохранён.</numerusform>
            <numerusform>%n пакета сохранено.</numerusform>
            <numerusform>%n пакетов сохранено.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could not be saved.</source>
        <translation>
            <numerusform>%n пакет не удалось сохранить.</numerusform>
            <numerusform>%n пакета не удалось сохранить.</numerusform>
            <numerusform>%n пакетов не удалось сохранить.</numerusform>
        </translation>
    </message>
    <message>
        <source>No program opens the folder %1.</source>
        <translation>Нет программы, открывающей папку %1.</translation>
    </message>
    <message>
        <source>Copied.</source>
        <translation>Скопировано.</translation>
    </message>
    <message>
        <source>Copied: %1</source>
        <translation>Скопировано: %1</translation>
    </message>
</context>
<context>
    <name>PackageItem</name>
    <message>
        <source>Dependencies not checked yet</source>
        <translation>Зависимости ещё не проверены</translation>
    </message>
    <message>
        <source>Some dependencies are not satisfied</source>
        <translation>Некоторые зависимости не удовлетворены</translation>
    </message>
    <message>
        <source>Depends on nothing</source>
        <translation>Зависимостей нет</translation>
    </message>
    <message>
        <source>All dependencies are satisfied</source>
        <translation>Все зависимости удовлетворены</translation>
    </message>
    <message numerus="yes">
        <source>%1 satisfies %2 of %n dependency(ies)</source>
        <translation>
            <numerusform>%1 удовлетворяет %2 из %n зависимости</numerusform>
            <numerusform>%1 удовлетворяет %2 из %n зависимостей</numerusform>
            <numerusform>%1 удовлетворяет %2 из %n зависимостей</numerusform>
        </translation>
    </message>
    <message>
        <source>Some dependencies could not be looked for</source>
        <translation>Поиск некоторых зависимостей выполнить не удалось</translation>
    </message>
</context>
<context>
    <name>PackageMore</name>
    <message>
        <source>More</source>
        <translation>Ещё</translation>
    </message>
    <message>
        <source>Size, source, place and checksum of the package file</source>
        <translation>Размер, источник, место и контрольная сумма файла пакета</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Размер:</translation>
    </message>
    <message>
        <source>Installed size:</source>
        <translation>Размер после установки:</translation>
    </message>
    <message>
        <source>Source package:</source>
        <translation>Исходный пакет:</translation>
    </message>
    <message>
        <source>Homepage:</source>
        <translation>Домашняя страница:</translation>
    </message>
    <message>
        <source>Added:</source>
        <translation>Добавлен:</translation>
    </message>
    <message>
        <source>Pool file:</source>
        <translation>Файл в пуле:</translation>
    </message>
    <message>
        <source>SHA-256:</source>
        <translation>SHA-256:</translation>
    </message>
    <message>
        <source>The file is missing.</source>
        <translation>Файла нет.</translation>
    </message>
    <message>
        <source>The file has another size: %1</source>
        <translation>У файла другой размер: %1</translation>
    </message>
</context>
<context>
    <name>PackagePanel</name>
    <message>
        <source>Package:</source>
        <translation>Пакет:</translation>
    </message>
    <message>
        <source>Version:</source>
        <translation>Версия:</translation>
    </message>
    <message>
        <source>Architecture:</source>
        <translation>Архитектура:</translation>
    </message>
    <message>
        <source>Component:</source>
        <translation>Компонент:</translation>
    </message>
    <message>
        <source>Section:</source>
        <translation>Раздел:</translation>
    </message>
    <message>
        <source>Maintainer:</source>
        <translation>Сопровождающий:</translation>
    </message>
    <message>
        <source>Description:</source>
        <translation>Описание:</translation>
    </message>
    <message>
        <source>Signature:</source>
        <translation>Подпись:</translation>
    </message>
    <message>
        <source>%1 (listed for %2)</source>
        <translation>%1 (в списке для %2)</translation>
    </message>
    <message>
        <source>Unsigned</source>
        <translation>Не подписан</translation>
    </message>
</context>
<context>
    <name>PackageReplacementDialog</name>
    <message>
        <source>The repository already contains a package %1 (%2) of a newer version. Do you want to replace it?</source>
        <translation>В репозитории уже есть более новая версия пакета %1 (%2). Заменить её?</translation>
    </message>
    <message>
        <source>The repository already contains a package %1 (%2) of an earlier version. Do you want to replace it?</source>
        <translation>В репозитории уже есть более старая версия пакета %1 (%2). Заменить её?</translation>
    </message>
    <message>
        <source>The package %1 (%2) already exists. Do you want to replace it?</source>
        <translation>Пакет %1 (%2) уже существует. Заменить его?</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Package replacement</source>
        <translation>Замена пакета</translation>
    </message>
    <message>
        <source>Apply to all</source>
        <translation>Применить ко всем</translation>
    </message>
    <message>
        <source>Version in the repository: %1</source>
        <translation>Версия в репозитории: %1</translation>
    </message>
    <message>
        <source>New version: %1 (%2)</source>
        <translation>Новая версия: %1 (%2)</translation>
    </message>
    <message>
        <source>You can immediately choose what to do with all subsequent matches; to do this, select one of the options and click &quot;Apply to all&quot;</source>
        <translation>Можно сразу выбрать, что делать со всеми последующими совпадениями: выберите один из вариантов и нажмите «Применить ко всем»</translation>
    </message>
    <message>
        <source>Give preference to versions higer</source>
        <translation>Предпочитать более высокие версии</translation>
    </message>
    <message>
        <source>In case of matching package, preference will be given to the package with a higher version</source>
        <translation>При совпадении пакетов предпочтение отдаётся пакету с более высокой версией</translation>
    </message>
    <message>
        <source>Give preference to versions lower</source>
        <translation>Предпочитать более низкие версии</translation>
    </message>
    <message>
        <source>In case of matching package, preference will be given to the package with a lower version</source>
        <translation>При совпадении пакетов предпочтение отдаётся пакету с более низкой версией</translation>
    </message>
    <message>
        <source>Replace all packages</source>
        <translation>Заменять все пакеты</translation>
    </message>
    <message>
        <source>If the package matches, always replace it</source>
        <translation>При совпадении всегда заменять пакет</translation>
    </message>
    <message>
        <source>Do not replace packages</source>
        <translation>Не заменять пакеты</translation>
    </message>
    <message>
        <source>Always give preference to packages already present in the repository</source>
        <translation>Всегда отдавать предпочтение пакетам, уже имеющимся в репозитории</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Остановить</translation>
    </message>
    <message>
        <source>Keep this package and add no more</source>
        <translation>Оставить этот пакет и больше ничего не добавлять</translation>
    </message>
    <message>
        <source>It is one file for several architectures, so the answer is for all of them: %1</source>
        <translation>Это один файл для нескольких архитектур, поэтому ответ относится ко всем: %1</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Предпросмотр...</translation>
    </message>
    <message>
        <source>Stops here, and shows what is left in one window</source>
        <translation>Останавливает здесь и показывает остальное в одном окне</translation>
    </message>
</context>
<context>
    <name>PackageStatusLine</name>
    <message>
        <source>Dependences not checked</source>
        <translation>Зависимости не проверены</translation>
    </message>
    <message>
        <source>Dependences not satisfied</source>
        <translation>Зависимости не удовлетворены</translation>
    </message>
    <message>
        <source>Dependences satisfied</source>
        <translation>Зависимости удовлетворены</translation>
    </message>
    <message>
        <source>Total: %1 package(s)</source>
        <translation>Всего пакетов: %1</translation>
    </message>
</context>
<context>
    <name>ParametersDialog</name>
    <message>
        <source>Show package version</source>
        <translation>Показывать версию пакета</translation>
    </message>
    <message>
        <source>Parametrs</source>
        <translation>Параметры</translation>
    </message>
</context>
<context>
    <name>PreviewCommands</name>
    <message>
        <source>Preview of changes</source>
        <translation>Предпросмотр изменений</translation>
    </message>
    <message>
        <source>Always</source>
        <translation>Всегда</translation>
    </message>
    <message>
        <source>When something would break</source>
        <translation>Если что-то перестанет работать</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Никогда</translation>
    </message>
    <message>
        <source>Text (*.txt)</source>
        <translation>Текст (*.txt)</translation>
    </message>
    <message>
        <source>JSON (*.json)</source>
        <translation>JSON (*.json)</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>Сохранение отчёта</translation>
    </message>
    <message>
        <source>The report cannot be saved in %1.</source>
        <translation>Не удалось сохранить отчёт в %1.</translation>
    </message>
    <message>
        <source>The report is saved in %1.</source>
        <translation>Отчёт сохранён в %1.</translation>
    </message>
</context>
<context>
    <name>PreviewDialog</name>
    <message>
        <source>Replace all of this kind</source>
        <translation>Заменить все такие</translation>
    </message>
    <message>
        <source>Keep all of this kind</source>
        <translation>Оставить все такие</translation>
    </message>
    <message>
        <source>Difference...</source>
        <translation>Различия...</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Остановить</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Предпросмотр</translation>
    </message>
    <message>
        <source>Save as report...</source>
        <translation>Сохранить как отчёт...</translation>
    </message>
    <message>
        <source>as chosen in the rows</source>
        <translation>как выбрано в строках</translation>
    </message>
    <message>
        <source>Packages that are already there:</source>
        <translation>Уже имеющиеся пакеты:</translation>
    </message>
    <message>
        <source>Name, or what happens</source>
        <translation>Имя или что произойдёт</translation>
    </message>
    <message>
        <source>Compare the present file with the new one</source>
        <translation>Сравнить имеющийся файл с новым</translation>
    </message>
    <message>
        <source>Filter:</source>
        <translation>Фильтр:</translation>
    </message>
    <message>
        <source>Packages that the change concerns</source>
        <translation>Пакеты, которых касается изменение</translation>
    </message>
    <message>
        <source>Effect</source>
        <translation>Последствия</translation>
    </message>
    <message>
        <source>What adding these packages would change in %1. Nothing has been changed yet.</source>
        <translation>Что изменит в %1 добавление этих пакетов. Пока ничего не изменено.</translation>
    </message>
    <message>
        <source>What removing these packages would change in %1. Nothing has been changed yet.</source>
        <translation>Что изменит в %1 удаление этих пакетов. Пока ничего не изменено.</translation>
    </message>
    <message>
        <source>What fetching these packages would change in %1. Nothing has been changed yet.</source>
        <translation>Что изменит в %1 загрузка этих пакетов. Пока ничего не изменено.</translation>
    </message>
    <message>
        <source>What this import would change in %1. Nothing has been changed yet.</source>
        <translation>Что изменит в %1 этот импорт. Пока ничего не изменено.</translation>
    </message>
    <message>
        <source>What this upgrade would change in %1. Nothing has been changed yet.</source>
        <translation>Что изменит в %1 это обновление. Пока ничего не изменено.</translation>
    </message>
    <message>
        <source>What the new description would change in %1. Nothing has been changed yet.</source>
        <translation>Что изменит в %1 новое описание. Пока ничего не изменено.</translation>
    </message>
    <message>
        <source>What going back would change in %1. Nothing has been changed yet.</source>
        <translation>Что изменит в %1 возврат. Пока ничего не изменено.</translation>
    </message>
    <message>
        <source>The repository has changed meanwhile, so nothing was done. This is what the change would do now.</source>
        <translation>Репозиторий тем временем изменился, поэтому ничего не сделано. Вот что изменение сделает теперь.</translation>
    </message>
    <message>
        <source>Effect: something would break.</source>
        <translation>Последствия: что-то перестанет работать.</translation>
    </message>
    <message>
        <source>Effect: nothing would break.</source>
        <translation>Последствия: ничего не сломается.</translation>
    </message>
    <message>
        <source>Effect: is being worked out...</source>
        <translation>Последствия: выясняются...</translation>
    </message>
    <message>
        <source>Effect: not known, because the search was stopped.</source>
        <translation>Последствия: неизвестны, так как поиск остановлен.</translation>
    </message>
    <message>
        <source>shown: %1 of %2</source>
        <translation>показано: %1 из %2</translation>
    </message>
    <message>
        <source>Add %1 to the repository</source>
        <translation>Добавить %1 в репозиторий</translation>
    </message>
</context>
<context>
    <name>PreviewEffectView</name>
    <message>
        <source>Copy</source>
        <translation>Копировать</translation>
    </message>
    <message>
        <source>The description</source>
        <translation>Описание</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>Клиенты</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could be installed then</source>
        <translation>
            <numerusform>%n пакет можно будет установить</numerusform>
            <numerusform>%n пакета можно будет установить</numerusform>
            <numerusform>%n пакетов можно будет установить</numerusform>
        </translation>
    </message>
    <message>
        <source>What can be installed stays the same.</source>
        <translation>Набор устанавливаемых пакетов не изменится.</translation>
    </message>
    <message>
        <source>Checked against: %1</source>
        <translation>Основа проверки: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could no longer be installed</source>
        <translation>
            <numerusform>%n пакет больше нельзя будет установить</numerusform>
            <numerusform>%n пакета больше нельзя будет установить</numerusform>
            <numerusform>%n пакетов больше нельзя будет установить</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) that come in cannot be installed</source>
        <translation>
            <numerusform>%n добавляемый пакет нельзя установить</numerusform>
            <numerusform>%n добавляемых пакета нельзя установить</numerusform>
            <numerusform>%n добавляемых пакетов нельзя установить</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 in the repository %2</source>
        <translation>%1 в репозитории %2</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>и ещё %n</numerusform>
            <numerusform>и ещё %n</numerusform>
            <numerusform>и ещё %n</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PreviewJob</name>
    <message>
        <source>Finding out what would change</source>
        <translation>Определение изменений</translation>
    </message>
    <message>
        <source>There is no preview.</source>
        <translation>Предпросмотра нет.</translation>
    </message>
    <message>
        <source>The preview was stopped.</source>
        <translation>Предпросмотр остановлен.</translation>
    </message>
    <message>
        <source>No source offers this version any more.</source>
        <translation>Ни один источник больше не предлагает эту версию.</translation>
    </message>
    <message>
        <source>The history has damaged records, so it is not known what going back would change.</source>
        <translation>В истории есть повреждённые записи, поэтому неизвестно, что изменит возврат.</translation>
    </message>
    <message>
        <source>Its file is missing, so there is no way back: %1</source>
        <translation>Файл отсутствует, поэтому вернуться нельзя: %1</translation>
    </message>
    <message>
        <source>The preview is ready.</source>
        <translation>Предпросмотр готов.</translation>
    </message>
    <message>
        <source>Finding out which packages can be installed then</source>
        <translation>Определение пакетов, которые можно будет установить</translation>
    </message>
    <message>
        <source>It is not the file that its repository lists. Reload that repository.</source>
        <translation>Это не тот файл, который указан в его репозитории. Перечитайте тот репозиторий.</translation>
    </message>
</context>
<context>
    <name>PreviewModel</name>
    <message>
        <source>What happens</source>
        <translation>Что произойдёт</translation>
    </message>
    <message>
        <source>Newer version</source>
        <translation>Более новая версия</translation>
    </message>
    <message>
        <source>Older version</source>
        <translation>Более старая версия</translation>
    </message>
    <message>
        <source>Same version, other content</source>
        <translation>Та же версия, другое содержимое</translation>
    </message>
    <message>
        <source>Same file</source>
        <translation>Тот же файл</translation>
    </message>
    <message>
        <source>Refused: %1</source>
        <translation>Отклонён: %1</translation>
    </message>
    <message>
        <source>%1: replace</source>
        <translation>%1: заменить</translation>
    </message>
    <message>
        <source>%1: do not replace</source>
        <translation>%1: не заменять</translation>
    </message>
    <message>
        <source>Is added</source>
        <translation>Будет добавлен</translation>
    </message>
    <message>
        <source>Is not added</source>
        <translation>Не будет добавлен</translation>
    </message>
    <message>
        <source>Is removed</source>
        <translation>Будет удалён</translation>
    </message>
    <message>
        <source>Stays</source>
        <translation>Останется</translation>
    </message>
    <message>
        <source>Is replaced</source>
        <translation>Будет заменён</translation>
    </message>
    <message>
        <source>Is replaced: %1</source>
        <translation>Будет заменён: %1</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Component: %1</source>
        <translation>Компонент: %1</translation>
    </message>
    <message>
        <source>It is one file for several rows, which are switched together.</source>
        <translation>Это один файл для нескольких строк, они переключаются вместе.</translation>
    </message>
    <message>
        <source>Package</source>
        <translation>Пакет</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Архитектура</translation>
    </message>
    <message>
        <source>Old version</source>
        <translation>Старая версия</translation>
    </message>
    <message>
        <source>New version</source>
        <translation>Новая версия</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Размер</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Откуда</translation>
    </message>
</context>
<context>
    <name>PreviewReport</name>
    <message>
        <source>Packages</source>
        <translation>Пакеты</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Описание</translation>
    </message>
    <message>
        <source>Can no longer be installed</source>
        <translation>Больше нельзя установить</translation>
    </message>
    <message>
        <source>Can be installed from then on</source>
        <translation>Можно будет установить</translation>
    </message>
    <message>
        <source>Come in, and cannot be installed</source>
        <translation>Добавляются, но установить их нельзя</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>Клиенты</translation>
    </message>
    <message>
        <source>Disk</source>
        <translation>Диск</translation>
    </message>
    <message>
        <source>Signature</source>
        <translation>Подпись</translation>
    </message>
    <message>
        <source>Which packages can be installed then has not been found out.</source>
        <translation>Какие пакеты можно будет установить, не выяснено.</translation>
    </message>
    <message>
        <source>Whether packages can be installed was checked with: %1</source>
        <translation>Возможность установки проверена с учётом: %1</translation>
    </message>
</context>
<context>
    <name>PreviewRows</name>
    <message>
        <source>It is in the repository no longer.</source>
        <translation>Его больше нет в репозитории.</translation>
    </message>
    <message>
        <source>The repository holds another version by now: %1</source>
        <translation>В репозитории теперь другая версия: %1</translation>
    </message>
    <message>
        <source>The repository holds the version %1 by now.</source>
        <translation>В репозитории теперь версия %1.</translation>
    </message>
    <message>
        <source>No source offers this version any more.</source>
        <translation>Ни один источник больше не предлагает эту версию.</translation>
    </message>
</context>
<context>
    <name>PreviewText</name>
    <message>
        <source>Adding packages</source>
        <translation>Добавление пакетов</translation>
    </message>
    <message>
        <source>Removing packages</source>
        <translation>Удаление пакетов</translation>
    </message>
    <message>
        <source>Fetching packages</source>
        <translation>Загрузка пакетов</translation>
    </message>
    <message>
        <source>Importing packages</source>
        <translation>Импорт пакетов</translation>
    </message>
    <message>
        <source>Upgrading packages</source>
        <translation>Обновление пакетов</translation>
    </message>
    <message>
        <source>Changing the description</source>
        <translation>Изменение описания</translation>
    </message>
    <message>
        <source>Going back</source>
        <translation>Возврат</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>отклонён</translation>
    </message>
    <message>
        <source>kept</source>
        <translation>остаётся</translation>
    </message>
    <message>
        <source>left out</source>
        <translation>пропущен</translation>
    </message>
    <message>
        <source>added</source>
        <translation>добавлен</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>удалён</translation>
    </message>
    <message>
        <source>replaced with a newer version</source>
        <translation>заменён более новой версией</translation>
    </message>
    <message>
        <source>replaced with an older version</source>
        <translation>заменён более старой версией</translation>
    </message>
    <message>
        <source>replaced with the same file</source>
        <translation>заменён тем же файлом</translation>
    </message>
    <message>
        <source>replaced with the same version</source>
        <translation>заменён той же версией</translation>
    </message>
    <message>
        <source>replaced</source>
        <translation>заменён</translation>
    </message>
    <message>
        <source>newer</source>
        <translation>новее</translation>
    </message>
    <message>
        <source>older</source>
        <translation>старее</translation>
    </message>
    <message>
        <source>the same file</source>
        <translation>тот же файл</translation>
    </message>
    <message>
        <source>same version, other contents</source>
        <translation>та же версия, другое содержимое</translation>
    </message>
    <message>
        <source>Added: %1, replaced: %2, removed: %3, refused: %4, left as they are: %5</source>
        <translation>Добавлено: %1, заменено: %2, удалено: %3, отклонено: %4, без изменений: %5</translation>
    </message>
    <message numerus="yes">
        <source>Clients that have them installed upgrade %n package(s).</source>
        <translation>
            <numerusform>Клиенты, у которых он установлен, обновят %n пакет.</numerusform>
            <numerusform>Клиенты, у которых они установлены, обновят %n пакета.</numerusform>
            <numerusform>Клиенты, у которых они установлены, обновят %n пакетов.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Of %n package(s), clients keep the newer version that they have installed.</source>
        <translation>
            <numerusform>У %n пакета клиенты сохранят установленную более новую версию.</numerusform>
            <numerusform>У %n пакетов клиенты сохранят установленную более новую версию.</numerusform>
            <numerusform>У %n пакетов клиенты сохранят установленную более новую версию.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n removed package(s) stay installed where they are, without updates.</source>
        <translation>
            <numerusform>%n удалённый пакет останется там, где установлен, без обновлений.</numerusform>
            <numerusform>%n удалённых пакета останутся там, где установлены, без обновлений.</numerusform>
            <numerusform>%n удалённых пакетов останутся там, где установлены, без обновлений.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Clients that have it installed do not get the other contents of %n package(s) of the same version.</source>
        <translation>
            <numerusform>Клиенты, у которых он установлен, не получат другого содержимого %n пакета той же версии.</numerusform>
            <numerusform>Клиенты, у которых они установлены, не получат другого содержимого %n пакетов той же версии.</numerusform>
            <numerusform>Клиенты, у которых они установлены, не получат другого содержимого %n пакетов той же версии.</numerusform>
        </translation>
    </message>
    <message>
        <source>Comes into the pool: %1. Leaves it: %2.</source>
        <translation>Добавится в пул: %1. Уйдёт из него: %2.</translation>
    </message>
    <message>
        <source>Free on the disk: %1.</source>
        <translation>Свободно на диске: %1.</translation>
    </message>
    <message>
        <source>Until now: %1</source>
        <translation>До сих пор: %1</translation>
    </message>
</context>
<context>
    <name>Prompts</name>
    <message numerus="yes">
        <source>%n further message(s) below.</source>
        <translation>
            <numerusform>Ниже ещё %n сообщение.</numerusform>
            <numerusform>Ниже ещё %n сообщения.</numerusform>
            <numerusform>Ниже ещё %n сообщений.</numerusform>
        </translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Ошибка</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Предупреждение</translation>
    </message>
    <message>
        <source>Confirm replacement</source>
        <translation>Подтверждение замены</translation>
    </message>
    <message>
        <source>The file %1 already exists. Do you want to replace it?</source>
        <translation>Файл %1 уже существует. Заменить его?</translation>
    </message>
</context>
<context>
    <name>PublicationAccess</name>
    <message>
        <source>The access rights of %1 cannot be changed.</source>
        <translation>Не удалось изменить права доступа к %1.</translation>
    </message>
</context>
<context>
    <name>PublicationCommands</name>
    <message>
        <source>Address is copied to clipboard</source>
        <translation>Адрес скопирован в буфер обмена</translation>
    </message>
    <message>
        <source>Another repo already published</source>
        <translation>Другой репозиторий уже опубликован</translation>
    </message>
    <message>
        <source>The repository is not unpublished!</source>
        <translation>Репозиторий не снят с публикации!</translation>
    </message>
    <message>
        <source>The file /etc/vsftpd.conf was written by somebody else, or lets other users in, too. The FTP server may serve more than the repository and is not stopped. The administrator can stop it: systemctl disable --now vsftpd</source>
        <translation>Файл /etc/vsftpd.conf создан кем-то другим или допускает и других пользователей. FTP-сервер, возможно, отдаёт не только репозиторий и поэтому не остановлен. Администратор может остановить его: systemctl disable --now vsftpd</translation>
    </message>
    <message>
        <source>No server type is chosen on its page.</source>
        <translation>На его странице не выбран тип сервера.</translation>
    </message>
</context>
<context>
    <name>PublicationConsent</name>
    <message numerus="yes">
        <source>and %n further file(s)</source>
        <translation>
            <numerusform>и ещё %n файл</numerusform>
            <numerusform>и ещё %n файла</numerusform>
            <numerusform>и ещё %n файлов</numerusform>
        </translation>
    </message>
    <message>
        <source>Access rights</source>
        <translation>Права доступа</translation>
    </message>
    <message>
        <source>The server cannot read everything in the repository. Do you want to let all users of this machine read it?</source>
        <translation>Сервер не может прочитать всё содержимое репозитория. Разрешить его чтение всем пользователям этого компьютера?</translation>
    </message>
    <message>
        <source>Publication confirmation</source>
        <translation>Подтверждение публикации</translation>
    </message>
    <message>
        <source>Do you want to publish an empty repository?</source>
        <translation>Опубликовать пустой репозиторий?</translation>
    </message>
    <message>
        <source>The repository %1 is published over FTP now and will not be any more.</source>
        <translation>Репозиторий %1 сейчас опубликован по FTP; его публикация прекратится.</translation>
    </message>
    <message>
        <source>The first file that is not the program&apos;s own is kept beside it.</source>
        <translation>Первый файл, созданный не этой программой, сохраняется рядом.</translation>
    </message>
    <message>
        <source>Rewrite confirmation</source>
        <translation>Подтверждение перезаписи</translation>
    </message>
    <message>
        <source>File /etc/vsftpd.conf will be rewrite. Do you want to continue?</source>
        <translation>Файл /etc/vsftpd.conf будет перезаписан. Продолжить?</translation>
    </message>
    <message>
        <source>The port %1 belongs to the service of the repository %2, which does not run. Do you want to replace it?</source>
        <translation>Порт %1 принадлежит службе репозитория %2, которая не запущена. Заменить её?</translation>
    </message>
</context>
<context>
    <name>PublicationPanel</name>
    <message>
        <source>Choose a server type</source>
        <translation>Выберите тип сервера</translation>
    </message>
    <message>
        <source>Complete the IP address</source>
        <translation>Введите IP-адрес полностью</translation>
    </message>
    <message>
        <source>Address is copied to clipboard</source>
        <translation>Адрес скопирован в буфер обмена</translation>
    </message>
    <message>
        <source>Published at %1</source>
        <translation>Опубликован по адресу %1</translation>
    </message>
    <message>
        <source>To be published at %1: %2</source>
        <translation>Должен быть опубликован по адресу %1: %2</translation>
    </message>
    <message>
        <source>Not published</source>
        <translation>Не опубликован</translation>
    </message>
    <message>
        <source>The local sources list of this machine has a line for it that leads to a port where nothing is published. Publish it there, or choose &quot;Remove src list&quot;.</source>
        <translation>В локальном списке источников этого компьютера есть его строка, ведущая к порту, на котором ничего не опубликовано. Опубликуйте его там или выберите «Удалить из списка источников».</translation>
    </message>
    <message>
        <source>Trusted repository</source>
        <translation>Доверенный репозиторий</translation>
    </message>
    <message>
        <source>Architecture:</source>
        <translation>Архитектура:</translation>
    </message>
    <message>
        <source>Server type:</source>
        <translation>Тип сервера:</translation>
    </message>
    <message>
        <source>IP address:</source>
        <translation>IP-адрес:</translation>
    </message>
    <message>
        <source>Port number:</source>
        <translation>Номер порта:</translation>
    </message>
    <message>
        <source>Source line</source>
        <translation>Строка источника</translation>
    </message>
    <message>
        <source>Copy to clipboard</source>
        <translation>Скопировать в буфер обмена</translation>
    </message>
    <message>
        <source>Publish</source>
        <translation>Опубликовать</translation>
    </message>
    <message>
        <source>Unpublish</source>
        <translation>Снять с публикации</translation>
    </message>
    <message>
        <source>apt uses FTP only when a file in the client&apos;s /etc/apt/apt.conf.d holds this line:
Dir::Bin::Methods::ftp &quot;ftp&quot;;
From Debian 13 on it has no FTP at all.</source>
        <translation>apt использует FTP, только если файл в /etc/apt/apt.conf.d клиента содержит такую строку:
Dir::Bin::Methods::ftp &quot;ftp&quot;;
Начиная с Debian 13 он вовсе не умеет работать по FTP.</translation>
    </message>
</context>
<context>
    <name>PublicationRules</name>
    <message>
        <source>There is no repository</source>
        <translation>Репозитория нет</translation>
    </message>
    <message>
        <source>Choose a server type</source>
        <translation>Выберите тип сервера</translation>
    </message>
    <message>
        <source>There is no port %1</source>
        <translation>Порта %1 не существует</translation>
    </message>
    <message>
        <source>The path %1 cannot be served. It may consist of letters, digits, blanks inside names and the characters %2.</source>
        <translation>Путь %1 нельзя опубликовать. Он может состоять из букв, цифр, пробелов внутри имён и символов %2.</translation>
    </message>
    <message>
        <source>The repository is published already</source>
        <translation>Репозиторий уже опубликован</translation>
    </message>
    <message>
        <source>Another repository is published</source>
        <translation>Опубликован другой репозиторий</translation>
    </message>
    <message>
        <source>The repository is published on this port over %1. Unpublish it first.</source>
        <translation>Репозиторий опубликован на этом порту по %1. Сначала снимите его с публикации.</translation>
    </message>
    <message>
        <source>Another program uses the port %1</source>
        <translation>Порт %1 занят другой программой</translation>
    </message>
    <message>
        <source>What lies below /tmp or /var/tmp cannot be published: services have these folders for themselves. Move the repository to another place.</source>
        <translation>То, что лежит в /tmp или /var/tmp, нельзя опубликовать: у служб там собственные папки. Переместите репозиторий в другое место.</translation>
    </message>
</context>
<context>
    <name>PublicationText</name>
    <message>
        <source>Published</source>
        <translation>Опубликован</translation>
    </message>
    <message>
        <source>Being started</source>
        <translation>Запускается</translation>
    </message>
    <message>
        <source>Being stopped</source>
        <translation>Останавливается</translation>
    </message>
    <message>
        <source>Not running</source>
        <translation>Не запущен</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Сбой</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Неизвестно</translation>
    </message>
</context>
<context>
    <name>PublishCommand</name>
    <message>
        <source>Choose a server type, then publish the repository once more.</source>
        <translation>Выберите тип сервера и опубликуйте репозиторий ещё раз.</translation>
    </message>
    <message>
        <source>The repository is not published!</source>
        <translation>Репозиторий не опубликован!</translation>
    </message>
    <message>
        <source>Waiting for the system to publish %1</source>
        <translation>Ожидание публикации %1</translation>
    </message>
    <message>
        <source>Repository is published.</source>
        <translation>Репозиторий опубликован.</translation>
    </message>
    <message>
        <source>The end of the server&apos;s log %1:</source>
        <translation>Конец журнала сервера %1:</translation>
    </message>
    <message>
        <source>Repository is unpublished.</source>
        <translation>Репозиторий снят с публикации.</translation>
    </message>
    <message>
        <source>The repository %1 is busy. Unpublish it when that has ended.</source>
        <translation>Репозиторий %1 занят. Снимите его с публикации, когда работа с ним закончится.</translation>
    </message>
    <message>
        <source>Waiting for the system to unpublish %1</source>
        <translation>Ожидание снятия %1 с публикации</translation>
    </message>
    <message>
        <source>The repository is not unpublished!</source>
        <translation>Репозиторий не снят с публикации!</translation>
    </message>
</context>
<context>
    <name>PublishedReposDialog</name>
    <message>
        <source>Published repositories</source>
        <translation>Опубликованные репозитории</translation>
    </message>
    <message>
        <source>&amp;Log of the server:</source>
        <translation>&amp;Журнал сервера:</translation>
    </message>
    <message>
        <source>&amp;Open repository</source>
        <translation>&amp;Открыть репозиторий</translation>
    </message>
    <message>
        <source>&amp;Copy address</source>
        <translation>&amp;Копировать адрес</translation>
    </message>
    <message>
        <source>&amp;Unpublish</source>
        <translation>&amp;Снять с публикации</translation>
    </message>
    <message>
        <source>No repository is published from this machine.</source>
        <translation>На этом компьютере нет опубликованных репозиториев.</translation>
    </message>
    <message>
        <source>Asking the system what is published...</source>
        <translation>Запрос опубликованных репозиториев...</translation>
    </message>
    <message>
        <source>The log %1 is empty or cannot be read.</source>
        <translation>Журнал %1 пуст или недоступен для чтения.</translation>
    </message>
    <message>
        <source>The FTP server keeps no log of its own for the repository.</source>
        <translation>FTP-сервер не ведёт отдельного журнала для репозитория.</translation>
    </message>
    <message>
        <source>Unpublish confirmation</source>
        <translation>Подтверждение снятия с публикации</translation>
    </message>
    <message>
        <source>Do you want to unpublish the repository %1?</source>
        <translation>Снять репозиторий %1 с публикации?</translation>
    </message>
    <message>
        <source>Clients that use it get errors until it is published again.</source>
        <translation>Использующие его клиенты будут получать ошибки, пока он не будет опубликован снова.</translation>
    </message>
</context>
<context>
    <name>PublishedReposModel</name>
    <message>
        <source>Repository</source>
        <translation>Репозиторий</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Тип</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Адрес</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Порт</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Состояние</translation>
    </message>
</context>
<context>
    <name>RegularFile</name>
    <message>
        <source>%1 is no regular file.</source>
        <translation>%1 — не обычный файл.</translation>
    </message>
</context>
<context>
    <name>RemovalQuestion</name>
    <message>
        <source>Looking for packages that could no longer be installed...</source>
        <translation>Поиск пакетов, которые больше нельзя будет установить...</translation>
    </message>
    <message>
        <source>Whether other packages need them could not be found out in time.</source>
        <translation>Не удалось вовремя определить, нужны ли они другим пакетам.</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) could no longer be installed without this: %1</source>
        <translation>
            <numerusform>Без этого нельзя будет установить %n пакет: %1</numerusform>
            <numerusform>Без этого нельзя будет установить %n пакета: %1</numerusform>
            <numerusform>Без этого нельзя будет установить %n пакетов: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) of the repository %1 could no longer be installed without this: %2</source>
        <translation>
            <numerusform>Без этого нельзя будет установить %n пакет репозитория %1: %2</numerusform>
            <numerusform>Без этого нельзя будет установить %n пакета репозитория %1: %2</numerusform>
            <numerusform>Без этого нельзя будет установить %n пакетов репозитория %1: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>All other packages stay as they are.</source>
        <translation>На остальные пакеты это не повлияет.</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Предпросмотр...</translation>
    </message>
</context>
<context>
    <name>RepoItemLook</name>
    <message numerus="yes">
        <source>%n package(s) cannot be installed.</source>
        <translation>
            <numerusform>Нельзя установить %n пакет.</numerusform>
            <numerusform>Нельзя установить %n пакета.</numerusform>
            <numerusform>Нельзя установить %n пакетов.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) undecided: the search took too long.</source>
        <translation>
            <numerusform>Не решено для %n пакета: поиск занял слишком много времени.</numerusform>
            <numerusform>Не решено для %n пакетов: поиск занял слишком много времени.</numerusform>
            <numerusform>Не решено для %n пакетов: поиск занял слишком много времени.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cannot be installed.</source>
        <translation>Нельзя установить.</translation>
    </message>
    <message>
        <source>Can be installed.</source>
        <translation>Можно установить.</translation>
    </message>
    <message>
        <source>Undecided: the search took too long.</source>
        <translation>Не решено: поиск занял слишком много времени.</translation>
    </message>
    <message>
        <source>Breaks other packages.</source>
        <translation>Мешает другим пакетам.</translation>
    </message>
    <message>
        <source>Packages have changed since the check.</source>
        <translation>После проверки пакеты изменились.</translation>
    </message>
</context>
<context>
    <name>RepoModel</name>
    <message>
        <source>Architecture: %1</source>
        <translation>Архитектура: %1</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>RepoShell</name>
    <message>
        <source>The database of the repository is missing. Any change would make a new one and take all packages out of the indices, so nothing was done.</source>
        <translation>База данных репозитория отсутствует. Любое изменение создало бы новую базу и удалило бы все пакеты из индексов, поэтому ничего сделано не было.</translation>
    </message>
    <message>
        <source>The program reprepro could not be started. Is it installed?</source>
        <translation>Не удалось запустить программу reprepro. Установлена ли она?</translation>
    </message>
    <message>
        <source>The process reprepro crashed!</source>
        <translation>Процесс reprepro аварийно завершился!</translation>
    </message>
    <message>
        <source>The repository %1 is being changed by another program. Try again when it is done.</source>
        <translation>Репозиторий %1 сейчас изменяется другой программой. Повторите попытку, когда она закончит.</translation>
    </message>
    <message>
        <source>Repository is locked</source>
        <translation>Репозиторий заблокирован</translation>
    </message>
    <message>
        <source>The database of the repository %1 is locked, but no program uses it: an earlier run was interrupted. Do you want to remove the lock and try again?</source>
        <translation>База данных репозитория %1 заблокирована, но ни одна программа её не использует: предыдущий запуск был прерван. Снять блокировку и повторить попытку?</translation>
    </message>
    <message>
        <source>Exporting repository</source>
        <translation>Экспорт репозитория</translation>
    </message>
    <message>
        <source>Repository is not exported</source>
        <translation>Репозиторий не экспортирован</translation>
    </message>
    <message>
        <source>Can&apos;t open repository dir</source>
        <translation>Не удалось открыть каталог репозитория</translation>
    </message>
    <message>
        <source>Operation stopped. Repository not exported.</source>
        <translation>Операция остановлена. Репозиторий не экспортирован.</translation>
    </message>
    <message>
        <source>Repository exported.</source>
        <translation>Репозиторий экспортирован.</translation>
    </message>
    <message>
        <source>Exporting package</source>
        <translation>Экспорт пакета</translation>
    </message>
    <message>
        <source>Exporting packages</source>
        <translation>Экспорт пакетов</translation>
    </message>
    <message>
        <source>The file of the package %1 is not known.</source>
        <translation>Файл пакета %1 неизвестен.</translation>
    </message>
    <message>
        <source>Operation stopped. Package not exported.</source>
        <translation>Операция остановлена. Пакет не экспортирован.</translation>
    </message>
    <message>
        <source>Operation stopped. Packages not exported.</source>
        <translation>Операция остановлена. Пакеты не экспортированы.</translation>
    </message>
    <message>
        <source>Export finished</source>
        <translation>Экспорт завершён</translation>
    </message>
    <message>
        <source>Can&apos;t create archive for export</source>
        <translation>Не удалось создать архив для экспорта</translation>
    </message>
    <message>
        <source>%1 lies in the repository itself. Choose a place outside of it.</source>
        <translation>%1 находится в самом репозитории. Выберите место вне его.</translation>
    </message>
    <message>
        <source>Start repo import</source>
        <translation>Начало импорта репозитория</translation>
    </message>
    <message>
        <source>Import error!</source>
        <translation>Ошибка импорта!</translation>
    </message>
    <message>
        <source>Package(s) not imported</source>
        <translation>Пакеты не импортированы</translation>
    </message>
    <message>
        <source>Import failed: there are no packages by selected path</source>
        <translation>Импорт не удался: по выбранному пути нет пакетов</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) had been imported before the stop.</source>
        <translation>
            <numerusform>До остановки импортирован %n пакет.</numerusform>
            <numerusform>До остановки импортировано %n пакета.</numerusform>
            <numerusform>До остановки импортировано %n пакетов.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) imported</source>
        <translation>
            <numerusform>Импортирован %n пакет</numerusform>
            <numerusform>Импортировано %n пакета</numerusform>
            <numerusform>Импортировано %n пакетов</numerusform>
        </translation>
    </message>
    <message>
        <source>Can&apos;t open archive for import!</source>
        <translation>Не удалось открыть архив для импорта!</translation>
    </message>
    <message>
        <source>No temporary folder could be made to unpack it in.</source>
        <translation>Не удалось создать временную папку для распаковки.</translation>
    </message>
    <message>
        <source>Checking depends</source>
        <translation>Проверка зависимостей</translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) depends checked</source>
        <translation>
            <numerusform>Операция остановлена. Проверены зависимости у %1 из %n пакета</numerusform>
            <numerusform>Операция остановлена. Проверены зависимости у %1 из %n пакетов</numerusform>
            <numerusform>Операция остановлена. Проверены зависимости у %1 из %n пакетов</numerusform>
        </translation>
    </message>
    <message>
        <source>Depends checked</source>
        <translation>Зависимости проверены</translation>
    </message>
    <message>
        <source>The stored results of the dependency checks could not be read. The file is kept as %1; check the dependencies again.</source>
        <translation>Не удалось прочитать сохранённые результаты проверки зависимостей. Файл оставлен под именем %1; проверьте зависимости ещё раз.</translation>
    </message>
    <message>
        <source>Downloading package</source>
        <translation>Загрузка пакета</translation>
    </message>
    <message>
        <source>Downloading packages</source>
        <translation>Загрузка пакетов</translation>
    </message>
    <message>
        <source>No source offers: %1</source>
        <translation>Ни один источник не предлагает: %1</translation>
    </message>
    <message numerus="yes">
        <source>Added %n package(s) to local repo: %1</source>
        <translation>
            <numerusform>В локальный репозиторий добавлен %n пакет: %1</numerusform>
            <numerusform>В локальный репозиторий добавлено %n пакета: %1</numerusform>
            <numerusform>В локальный репозиторий добавлено %n пакетов: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) added to local repo: %2</source>
        <translation>
            <numerusform>Операция остановлена. В локальный репозиторий добавлено %1 из %n пакета: %2</numerusform>
            <numerusform>Операция остановлена. В локальный репозиторий добавлено %1 из %n пакетов: %2</numerusform>
            <numerusform>Операция остановлена. В локальный репозиторий добавлено %1 из %n пакетов: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>No temporary folder could be made to fetch it into.</source>
        <translation>Не удалось создать временную папку для загрузки.</translation>
    </message>
    <message>
        <source>apt has left no file of that version.</source>
        <translation>apt не оставил файла этой версии.</translation>
    </message>
    <message>
        <source>Impossible to delete directory %1!</source>
        <translation>Невозможно удалить каталог %1!</translation>
    </message>
    <message>
        <source>Impossible to create directory %1!</source>
        <translation>Невозможно создать каталог %1!</translation>
    </message>
    <message>
        <source>It is a directory of the system, or holds a home directory or an open repository.</source>
        <translation>Это системный каталог, или в нём находится домашний каталог либо открытый репозиторий.</translation>
    </message>
    <message>
        <source>Failed to create repository!</source>
        <translation>Не удалось создать репозиторий!</translation>
    </message>
    <message>
        <source>Impossible to create file %1!</source>
        <translation>Невозможно создать файл %1!</translation>
    </message>
    <message>
        <source>Opening repository</source>
        <translation>Открытие репозитория</translation>
    </message>
    <message>
        <source>File %1/conf/distributions not found! Do you want to import repository?</source>
        <translation>Файл %1/conf/distributions не найден! Импортировать репозиторий?</translation>
    </message>
    <message>
        <source>File %1/conf/distributions not found!</source>
        <translation>Файл %1/conf/distributions не найден!</translation>
    </message>
    <message>
        <source>File %1/conf/distributions names no distribution: its field Codename is missing or empty.</source>
        <translation>В файле %1/conf/distributions не указан дистрибутив: поле Codename отсутствует или пусто.</translation>
    </message>
    <message>
        <source>Repositry is not opened</source>
        <translation>Репозиторий не открыт</translation>
    </message>
    <message>
        <source>Repositry is opened</source>
        <translation>Репозиторий открыт</translation>
    </message>
    <message>
        <source>An earlier job was interrupted, and the indices of the repository could not be brought up to date. The packages shown may not be all that it holds.</source>
        <translation>Предыдущая операция была прервана, и индексы репозитория не удалось обновить. Возможно, показаны не все имеющиеся пакеты.</translation>
    </message>
    <message>
        <source>An earlier job was interrupted while it replaced a package. The replaced files are kept in %1; add them again if they are missing.</source>
        <translation>Предыдущая операция была прервана при замене пакета. Заменённые файлы сохранены в %1; добавьте их снова, если они отсутствуют.</translation>
    </message>
    <message>
        <source>Repository changing</source>
        <translation>Изменение репозитория</translation>
    </message>
    <message>
        <source>Repository not changed</source>
        <translation>Репозиторий не изменён</translation>
    </message>
    <message>
        <source>Repository is changed.</source>
        <translation>Репозиторий изменён.</translation>
    </message>
    <message>
        <source>Failed to change repository!</source>
        <translation>Не удалось изменить репозиторий!</translation>
    </message>
    <message>
        <source>Repository is not changed.</source>
        <translation>Репозиторий не изменён.</translation>
    </message>
    <message>
        <source>The repository holds several distributions. A change would delete all but the first, so nothing was done.</source>
        <translation>В репозитории несколько дистрибутивов. Изменение удалило бы все, кроме первого, поэтому ничего сделано не было.</translation>
    </message>
    <message>
        <source>It is the repository itself, lies in it or holds it, or it is a directory of the system, or holds a home directory or an open repository.</source>
        <translation>Это сам репозиторий, каталог внутри него или содержащий его каталог, либо системный каталог, либо каталог, в котором находится домашний каталог или открытый репозиторий.</translation>
    </message>
    <message>
        <source>The repository could not be moved to %1.</source>
        <translation>Не удалось переместить репозиторий в %1.</translation>
    </message>
    <message>
        <source>Failed to sign repository!</source>
        <translation>Не удалось подписать репозиторий!</translation>
    </message>
    <message>
        <source>Not added: %1. The repository holds version %2 (%3) already, which was kept.</source>
        <translation>Не добавлено: %1. В репозитории уже есть версия %2 (%3), она оставлена.</translation>
    </message>
    <message>
        <source>Not added: %1. The repository holds the newer version %2 (%3), which was kept.</source>
        <translation>Не добавлено: %1. В репозитории есть более новая версия %2 (%3), она оставлена.</translation>
    </message>
    <message>
        <source>Not added: %1. The repository holds the older version %2 (%3), which was kept.</source>
        <translation>Не добавлено: %1. В репозитории есть более старая версия %2 (%3), она оставлена.</translation>
    </message>
    <message>
        <source>The indices of the repository could not be written. They will be written when the repository is opened the next time.</source>
        <translation>Не удалось записать индексы репозитория. Они будут записаны при следующем открытии репозитория.</translation>
    </message>
    <message>
        <source>Adding package</source>
        <translation>Добавление пакета</translation>
    </message>
    <message>
        <source>Adding packages</source>
        <translation>Добавление пакетов</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) added: %1</source>
        <translation>
            <numerusform>Добавлен %n пакет: %1</numerusform>
            <numerusform>Добавлено %n пакета: %1</numerusform>
            <numerusform>Добавлено %n пакетов: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) added: %2</source>
        <translation>
            <numerusform>Операция остановлена. Добавлено %1 из %n пакета: %2</numerusform>
            <numerusform>Операция остановлена. Добавлено %1 из %n пакетов: %2</numerusform>
            <numerusform>Операция остановлена. Добавлено %1 из %n пакетов: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>Error adding package!</source>
        <translation>Ошибка добавления пакета!</translation>
    </message>
    <message>
        <source>Package is unsigned</source>
        <translation>Пакет не подписан</translation>
    </message>
    <message>
        <source>Package is added, but unsigned. Do you want to remove it?</source>
        <translation>Пакет добавлен, но не подписан. Удалить его?</translation>
    </message>
    <message>
        <source>Not added: %1. The repository could not be signed with it.</source>
        <translation>Не добавлено: %1. Репозиторий с этим пакетом не удалось подписать.</translation>
    </message>
    <message>
        <source>Added, but the repository could not be signed: %1.</source>
        <translation>Добавлено, но подписать репозиторий не удалось: %1.</translation>
    </message>
    <message>
        <source>Error adding package %1!</source>
        <translation>Ошибка добавления пакета %1!</translation>
    </message>
    <message>
        <source>Cannot added package %1 with architecture all!</source>
        <translation>Невозможно добавить пакет %1 с архитектурой all!</translation>
    </message>
    <message>
        <source>The present package could not be kept aside, so it was not replaced: %1</source>
        <translation>Имеющийся пакет не удалось сохранить отдельно, поэтому он не заменён: %1</translation>
    </message>
    <message>
        <source>The present package could not be removed, so it was not replaced.</source>
        <translation>Имеющийся пакет не удалось удалить, поэтому он не заменён.</translation>
    </message>
    <message>
        <source>The replaced package %1 could not be put back: its file was missing already.</source>
        <translation>Заменённый пакет %1 не удалось вернуть: его файл уже отсутствовал.</translation>
    </message>
    <message>
        <source>Removing package</source>
        <translation>Удаление пакета</translation>
    </message>
    <message>
        <source>Removing packages</source>
        <translation>Удаление пакетов</translation>
    </message>
    <message numerus="yes">
        <source>%n packages removed: %1</source>
        <translation>
            <numerusform>Удалён %n пакет: %1</numerusform>
            <numerusform>Удалено %n пакета: %1</numerusform>
            <numerusform>Удалено %n пакетов: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n packages(s) removed: %2</source>
        <translation>
            <numerusform>Операция остановлена. Удалено %1 из %n пакета: %2</numerusform>
            <numerusform>Операция остановлена. Удалено %1 из %n пакетов: %2</numerusform>
            <numerusform>Операция остановлена. Удалено %1 из %n пакетов: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>Error removing package %1!</source>
        <translation>Ошибка удаления пакета %1!</translation>
    </message>
    <message>
        <source>Package signing</source>
        <translation>Подписание пакета</translation>
    </message>
    <message>
        <source>Packages signing</source>
        <translation>Подписание пакетов</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) is signed: %1</source>
        <translation>
            <numerusform>Подписан %n пакет: %1</numerusform>
            <numerusform>Подписано %n пакета: %1</numerusform>
            <numerusform>Подписано %n пакетов: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) is signed: %2</source>
        <translation>
            <numerusform>Операция остановлена. Подписано %1 из %n пакета: %2</numerusform>
            <numerusform>Операция остановлена. Подписано %1 из %n пакетов: %2</numerusform>
            <numerusform>Операция остановлена. Подписано %1 из %n пакетов: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>Failed to sign package %1!</source>
        <translation>Не удалось подписать пакет %1!</translation>
    </message>
    <message>
        <source>No temporary folder could be made to sign it in.</source>
        <translation>Не удалось создать временную папку для подписания.</translation>
    </message>
    <message>
        <source>The record of the signed packages could not be written.</source>
        <translation>Не удалось записать перечень подписанных пакетов.</translation>
    </message>
    <message>
        <source>The file that has come is of another package: %1 %2 (%3).</source>
        <translation>Полученный файл относится к другому пакету: %1 %2 (%3).</translation>
    </message>
    <message>
        <source>Downloading information</source>
        <translation>Загрузка сведений</translation>
    </message>
    <message>
        <source>Information is not downloaded</source>
        <translation>Сведения не загружены</translation>
    </message>
    <message>
        <source>Canceled by user</source>
        <translation>Отменено пользователем</translation>
    </message>
    <message>
        <source>No packages for upgrading</source>
        <translation>Нет пакетов для обновления</translation>
    </message>
    <message>
        <source>Nothing to upgrade</source>
        <translation>Обновлять нечего</translation>
    </message>
    <message>
        <source>Ready for upgrade</source>
        <translation>Готово к обновлению</translation>
    </message>
    <message>
        <source>Upgrading repo</source>
        <translation>Обновление репозитория</translation>
    </message>
    <message>
        <source>Repo is not upgraded</source>
        <translation>Репозиторий не обновлён</translation>
    </message>
    <message>
        <source>Unable to create cache folder</source>
        <translation>Не удалось создать папку кэша</translation>
    </message>
    <message>
        <source>Repo upgraded</source>
        <translation>Репозиторий обновлён</translation>
    </message>
    <message>
        <source>The chosen sources offer no packages for this repository.</source>
        <translation>Выбранные источники не предлагают пакетов для этого репозитория.</translation>
    </message>
    <message>
        <source>Not upgraded: %1 (%2) is in the repository no longer.</source>
        <translation>Не обновлено: %1 (%2) больше нет в репозитории.</translation>
    </message>
    <message>
        <source>Are you sure?</source>
        <translation>Вы уверены?</translation>
    </message>
    <message>
        <source>Not upgraded: no source offers %1 %2 any more.</source>
        <translation>Не обновлено: ни один источник больше не предлагает %1 %2.</translation>
    </message>
    <message>
        <source>The database of the repository could not be copied, so nothing was changed. Is there room on the disk?</source>
        <translation>Не удалось скопировать базу данных репозитория, поэтому ничего не изменено. Есть ли место на диске?</translation>
    </message>
    <message>
        <source>The database of the repository is damaged and could not be put back. Make room on the disk, and open the repository again.</source>
        <translation>База данных репозитория повреждена, и восстановить её не удалось. Освободите место на диске и откройте репозиторий снова.</translation>
    </message>
    <message>
        <source>The database of the repository was damaged while a job changed it. It was put back as it was before, and what the job had done is undone. Make room on the disk, and do it again.</source>
        <translation>База данных репозитория была повреждена во время операции. Восстановлено её прежнее состояние, и всё, что сделала операция, отменено. Освободите место на диске и повторите операцию.</translation>
    </message>
    <message>
        <source>Failed to create file with selected sources</source>
        <translation>Не удалось создать файл с выбранными источниками</translation>
    </message>
    <message>
        <source>Create source.list file error</source>
        <translation>Ошибка создания файла source.list</translation>
    </message>
    <message>
        <source>Recovering repository after an interrupted job</source>
        <translation>Восстановление репозитория после прерванной операции</translation>
    </message>
    <message>
        <source>An earlier change of the repository was interrupted and has been undone. Do it again if it is still wanted.</source>
        <translation>Предыдущее изменение репозитория было прервано и отменено. Повторите его, если оно ещё нужно.</translation>
    </message>
    <message>
        <source>The database of the repository %1 stays locked, so nothing more was done.</source>
        <translation>База данных репозитория %1 остаётся заблокированной, поэтому больше ничего не сделано.</translation>
    </message>
    <message>
        <source>The package is for the architecture %1, and the repository has these: %2.</source>
        <translation>Пакет предназначен для архитектуры %1, а в репозитории есть следующие: %2.</translation>
    </message>
    <message>
        <source>The description of the repository has been changed by another program meanwhile, so nothing was done. Look at it and try again.</source>
        <translation>Описание репозитория тем временем изменила другая программа, поэтому ничего сделано не было. Просмотрите его и повторите попытку.</translation>
    </message>
    <message>
        <source>The description of the repository is written in a way that this program does not read fully. A change could delete packages, so nothing was done.</source>
        <translation>Описание репозитория составлено так, что эта программа читает его не полностью. Изменение могло бы удалить пакеты, поэтому ничего сделано не было.</translation>
    </message>
    <message>
        <source>It holds these repositories: %1</source>
        <translation>В нём находятся эти репозитории: %1</translation>
    </message>
    <message>
        <source>The change writes the description of the repository anew, without these lines:

%1

The file with them is kept as %2.</source>
        <translation>Изменение записывает описание репозитория заново, без этих строк:

%1

Файл с ними сохраняется как %2.</translation>
    </message>
    <message>
        <source>The repository will be signed with the default key instead.</source>
        <translation>Вместо этого репозиторий будет подписан ключом по умолчанию.</translation>
    </message>
    <message>
        <source>The repository will no longer be signed, so that clients may refuse it.</source>
        <translation>Репозиторий больше не будет подписан, и клиенты могут его отвергнуть.</translation>
    </message>
    <message>
        <source>Repository change</source>
        <translation>Изменение репозитория</translation>
    </message>
    <message>
        <source>Want to continue?</source>
        <translation>Продолжить?</translation>
    </message>
    <message>
        <source>The repository holds packages in places that its description does not name: %1. The change would delete them.</source>
        <translation>В репозитории есть пакеты в местах, которых нет в его описании: %1. Изменение удалило бы их.</translation>
    </message>
    <message numerus="yes">
        <source>%n link(s) of the repository lead to places outside of it and were left out. Such a link is followed only when it belongs to you or to root, and what it leads to has the same owner.</source>
        <translation>
            <numerusform>%n ссылка репозитория ведёт за его пределы и пропущена. Такая ссылка учитывается, только если она принадлежит вам или root и у того, на что она указывает, тот же владелец.</numerusform>
            <numerusform>%n ссылки репозитория ведут за его пределы и пропущены. Такая ссылка учитывается, только если она принадлежит вам или root и у того, на что она указывает, тот же владелец.</numerusform>
            <numerusform>%n ссылок репозитория ведут за его пределы и пропущены. Такая ссылка учитывается, только если она принадлежит вам или root и у того, на что она указывает, тот же владелец.</numerusform>
        </translation>
    </message>
    <message>
        <source>Left out, since it leads out of the repository: %1</source>
        <translation>Пропущено, так как ведёт за пределы репозитория: %1</translation>
    </message>
    <message>
        <source>The archive %1 has %2, and its packages need more than %3. It may be damaged, or have been made to fill the disk. Do you want to go on with it?</source>
        <translation>Размер архива %1 — %2, а его пакетам нужно больше %3. Возможно, он повреждён или создан, чтобы заполнить диск. Продолжить работу с ним?</translation>
    </message>
    <message>
        <source>Nothing was done.</source>
        <translation>Ничего не сделано.</translation>
    </message>
    <message>
        <source>The directory %1 does not exist any more. Its disk may be absent.</source>
        <translation>Каталог %1 больше не существует. Возможно, его диск отключён.</translation>
    </message>
    <message>
        <source>Another program has changed the repository since it was read, which may be the reason. Reload it with F5, and try once more.</source>
        <translation>С тех пор как репозиторий был прочитан, его изменила другая программа; возможно, причина в этом. Перечитайте его клавишей F5 и повторите попытку.</translation>
    </message>
    <message>
        <source>A job on the repository %1 was interrupted. It belongs to another user. Do you want to bring it in order now?</source>
        <translation>Операция с репозиторием %1 была прервана. Репозиторий принадлежит другому пользователю. Привести его в порядок сейчас?</translation>
    </message>
    <message>
        <source>No copy of the description can be kept in %1.</source>
        <translation>Не удалось сохранить копию описания в %1.</translation>
    </message>
    <message>
        <source>Reading repository again</source>
        <translation>Повторное чтение репозитория</translation>
    </message>
    <message>
        <source>Its description or its indices are missing.</source>
        <translation>Его описание или индексы отсутствуют.</translation>
    </message>
    <message>
        <source>The repository %1 cannot be read.</source>
        <translation>Не удалось прочитать репозиторий %1.</translation>
    </message>
    <message>
        <source>Repository is not read again</source>
        <translation>Репозиторий не перечитан</translation>
    </message>
    <message>
        <source>Repository is unchanged</source>
        <translation>Репозиторий не изменился</translation>
    </message>
    <message>
        <source>The repository %1 cannot be opened.</source>
        <translation>Не удалось открыть репозиторий %1.</translation>
    </message>
    <message>
        <source>You have not agreed to what the settings of the repository %1 would run or change.</source>
        <translation>Вы не согласились с тем, что запустили или изменили бы настройки репозитория %1.</translation>
    </message>
    <message>
        <source>Programs of the repository</source>
        <translation>Программы репозитория</translation>
    </message>
    <message numerus="yes">
        <source>... and %n more</source>
        <translation>
            <numerusform>... и ещё %n</numerusform>
            <numerusform>... и ещё %n</numerusform>
            <numerusform>... и ещё %n</numerusform>
        </translation>
    </message>
    <message>
        <source>The settings of the repository %1 name programs, which would be run with your rights, or lead out of its folder:

%2

</source>
        <translation>Настройки репозитория %1 называют программы, которые будут запущены с вашими правами, или ведут за пределы его папки:

%2

</translation>
    </message>
    <message>
        <source>Other users can change this repository.</source>
        <translation>Другие пользователи могут изменить этот репозиторий.</translation>
    </message>
    <message>
        <source>Do you trust these settings?</source>
        <translation>Вы доверяете этим настройкам?</translation>
    </message>
    <message>
        <source>The folder %1 cannot be read.</source>
        <translation>Не удалось прочитать папку %1.</translation>
    </message>
    <message>
        <source>%1 is a link to %2</source>
        <translation>%1 — ссылка на %2</translation>
    </message>
    <message>
        <source>Other users can change the repository %1, and %2.</source>
        <translation>Другие пользователи могут изменить репозиторий %1, и %2.</translation>
    </message>
    <message>
        <source>its settings could not be copied</source>
        <translation>его настройки не удалось скопировать</translation>
    </message>
    <message>
        <source>%1 is no file that can be read</source>
        <translation>%1 — не файл, который можно прочитать</translation>
    </message>
    <message>
        <source>%1 cannot be read, and may name any program</source>
        <translation>%1 недоступен для чтения и может называть любую программу</translation>
    </message>
    <message>
        <source>What packages in this archive depend on and no package in it is or provides, with the packages that need it:</source>
        <translation>От чего зависят пакеты в этом архиве и чем не является и чего не предоставляет ни один пакет в нём, с пакетами, которым это нужно:</translation>
    </message>
    <message numerus="yes">
        <source>%n dependency(ies) of the exported packages are not in the archive %1. The file %2 in it lists them all.</source>
        <translation>
            <numerusform>%n зависимости экспортированных пакетов нет в архиве %1. Полный список — в файле %2 внутри архива.</numerusform>
            <numerusform>%n зависимостей экспортированных пакетов нет в архиве %1. Все они названы в файле %2 внутри архива.</numerusform>
            <numerusform>%n зависимостей экспортированных пакетов нет в архиве %1. Все они названы в файле %2 внутри архива.</numerusform>
        </translation>
    </message>
    <message>
        <source>No temporary folder could be made for the settings of reprepro.</source>
        <translation>Не удалось создать временную папку для настроек reprepro.</translation>
    </message>
    <message>
        <source>There is too little room on the disk of the repository for a copy of its database, so nothing was changed. At least %1 must be free, and %2 are.</source>
        <translation>На диске репозитория слишком мало места для копии его базы данных, поэтому ничего не изменено. Должно быть свободно не меньше %1, а свободно %2.</translation>
    </message>
    <message>
        <source>Packages can be removed all the same.</source>
        <translation>Удалять пакеты всё же можно.</translation>
    </message>
    <message>
        <source>No packages are to be read in %1. It holds none, is damaged, or has a link to a file that it lacks.</source>
        <translation>В %1 не удалось прочитать ни одного пакета. Архив не содержит их, повреждён, или в нём есть ссылка на файл, которого в нём нет.</translation>
    </message>
    <message>
        <source>Not added: %1. The archive has only a link or a folder of this name, and no file.</source>
        <translation>Не добавлен: %1. В архиве под этим именем есть только ссылка или папка, но не файл.</translation>
    </message>
    <message>
        <source>%1: %2 free</source>
        <translation>%1: свободно %2</translation>
    </message>
    <message>
        <source>There is too little room to unpack it: its packages need %1, and a part of what is free has to stay so.</source>
        <translation>Для распаковки слишком мало места: пакетам нужно %1, а часть свободного места должна остаться свободной.</translation>
    </message>
    <message>
        <source>Disk is full</source>
        <translation>Диск заполнен</translation>
    </message>
    <message>
        <source>There is too little room on the disk of the repository for a copy of its database, which is kept as long as a job changes it, and there is none on another disk. The copy can be kept in memory: the repository may be damaged if the power fails or the system is shut down before the job ends. Do you want to go on?</source>
        <translation>На диске репозитория слишком мало места для копии его базы данных, которая хранится, пока операция её изменяет, и на других дисках места тоже нет. Копию можно держать в оперативной памяти: если до конца операции отключится питание или завершит работу система, репозиторий может быть повреждён. Продолжить?</translation>
    </message>
    <message>
        <source>The indices of the repository %1 are not up to date. It belongs to another user. Do you want to write them now?</source>
        <translation>Индексы репозитория %1 устарели. Он принадлежит другому пользователю. Записать их сейчас?</translation>
    </message>
    <message>
        <source>The indices of the repository could not be brought up to date. The packages shown may not be all that it holds.</source>
        <translation>Не удалось обновить индексы репозитория. Возможно, показаны не все его пакеты.</translation>
    </message>
    <message>
        <source>An earlier job was interrupted. Its copy of the database lay on another disk, and is not there or belongs to another user. Look whether all packages are there.</source>
        <translation>Предыдущая операция была прервана. Её копия базы данных лежала на другом диске, и её там нет, или она принадлежит другому пользователю. Проверьте, все ли пакеты на месте.</translation>
    </message>
    <message>
        <source>Writing the indices of the repository</source>
        <translation>Запись индексов репозитория</translation>
    </message>
    <message>
        <source>Choose another component when you add the package, or change the repository.</source>
        <translation>Выберите при добавлении другой компонент или измените репозиторий.</translation>
    </message>
    <message>
        <source>The package is for the component %1, and the repository has these: %2.</source>
        <translation>Пакет предназначен для компонента %1, а в репозитории есть только: %2.</translation>
    </message>
    <message>
        <source>The component %1 of the repository takes no packages for the installer (.udeb).</source>
        <translation>Компонент %1 репозитория не принимает пакеты для программы установки системы (.udeb).</translation>
    </message>
    <message>
        <source>The packages were carried over to the code name %1.</source>
        <translation>Пакеты перенесены на кодовое имя %1.</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) deleted: %1</source>
        <translation>
            <numerusform>Удалён %n пакет: %1</numerusform>
            <numerusform>Удалены %n пакета: %1</numerusform>
            <numerusform>Удалены %n пакетов: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) did not arrive under the new code name.</source>
        <translation>
            <numerusform>%n пакет не перенесён на новое кодовое имя.</numerusform>
            <numerusform>%n пакета не перенесены на новое кодовое имя.</numerusform>
            <numerusform>%n пакетов не перенесены на новое кодовое имя.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) added</source>
        <translation>
            <numerusform>%n пакет добавлен</numerusform>
            <numerusform>%n пакета добавлено</numerusform>
            <numerusform>%n пакетов добавлено</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) replaced</source>
        <translation>
            <numerusform>%n пакет заменён</numerusform>
            <numerusform>%n пакета заменено</numerusform>
            <numerusform>%n пакетов заменено</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) removed</source>
        <translation>
            <numerusform>%n пакет удалён</numerusform>
            <numerusform>%n пакета удалено</numerusform>
            <numerusform>%n пакетов удалено</numerusform>
        </translation>
    </message>
    <message>
        <source>Another program has changed the repository: %1</source>
        <translation>Другая программа изменила репозиторий: %1</translation>
    </message>
    <message>
        <source>The copy differs from the original.</source>
        <translation>Копия отличается от оригинала.</translation>
    </message>
    <message>
        <source>Do you want to give the copy up?</source>
        <translation>Отказаться от этой копии?</translation>
    </message>
    <message>
        <source>%1 is the root of a disk. Choose a folder in it.</source>
        <translation>%1 — корень диска. Выберите папку на нём.</translation>
    </message>
    <message>
        <source>The link %1 leads out of the repository by a relative path, and would lead elsewhere from the new place. Make it absolute first.</source>
        <translation>Ссылка %1 ведёт за пределы репозитория по относительному пути и с нового места вела бы в другое место. Сначала сделайте её абсолютной.</translation>
    </message>
    <message>
        <source>%1 was not removed: the repository holds another version by now.</source>
        <translation>%1 не удалён: в репозитории теперь другая версия.</translation>
    </message>
    <message>
        <source>The packages of the repository %1 could not be read.</source>
        <translation>Не удалось прочитать пакеты репозитория %1.</translation>
    </message>
    <message>
        <source>Complete check</source>
        <translation>Полная проверка</translation>
    </message>
    <message>
        <source>Complete check: nothing was checked</source>
        <translation>Полная проверка: ничего не проверено</translation>
    </message>
    <message numerus="yes">
        <source>%n installer package(s) need what the repository does not hold, and apt fetches no lists of installer packages: whether they can be installed is not known.</source>
        <translation>
            <numerusform>%n пакету установщика нужно то, чего нет в репозитории, а списков пакетов установщика apt не получает: можно ли его установить, не известно.</numerusform>
            <numerusform>%n пакетам установщика нужно то, чего нет в репозитории, а списков пакетов установщика apt не получает: можно ли их установить, не известно.</numerusform>
            <numerusform>%n пакетам установщика нужно то, чего нет в репозитории, а списков пакетов установщика apt не получает: можно ли их установить, не известно.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) checked completely</source>
        <translation>
            <numerusform>Операция остановлена. Полностью проверено %1 из %n пакета</numerusform>
            <numerusform>Операция остановлена. Полностью проверено %1 из %n пакетов</numerusform>
            <numerusform>Операция остановлена. Полностью проверено %1 из %n пакетов</numerusform>
        </translation>
    </message>
    <message>
        <source>Complete check done. Installable: %1, not installable: %2, undecided: %3</source>
        <translation>Полная проверка завершена. Можно установить: %1, нельзя: %2, не решено: %3</translation>
    </message>
    <message>
        <source>The stored results of the complete checks could not be read. The file is kept as %1; check completely again.</source>
        <translation>Не удалось прочитать сохранённые результаты полных проверок. Файл сохранён как %1; выполните полную проверку ещё раз.</translation>
    </message>
    <message>
        <source>A repository takes only names of small letters, digits and the characters + - . This name has others: %1</source>
        <translation>Репозиторий принимает только имена из строчных букв, цифр и знаков + - . Это имя содержит другие: %1</translation>
    </message>
    <message>
        <source>Its version is no valid one: %1</source>
        <translation>Недопустимая версия: %1</translation>
    </message>
    <message>
        <source>There is too little room on the disk of the repository for a restore point, so that this change could not be undone later. The copy of the database that every change needs would lie on another disk meanwhile. Do you want to go on without a restore point?</source>
        <translation>На диске репозитория слишком мало места для точки восстановления, поэтому это изменение нельзя будет потом отменить. Копия базы данных, нужная при каждом изменении, будет тем временем на другом диске. Продолжить без точки восстановления?</translation>
    </message>
    <message>
        <source>The replaced package %1 could not be put back.</source>
        <translation>Заменённый пакет %1 не удалось вернуть на место.</translation>
    </message>
    <message>
        <source>There was too little room on the disk.</source>
        <translation>На диске было слишком мало места.</translation>
    </message>
    <message>
        <source>The repository had no database yet.</source>
        <translation>У репозитория ещё не было базы данных.</translation>
    </message>
    <message>
        <source>The history was switched off.</source>
        <translation>История была отключена.</translation>
    </message>
    <message>
        <source>The files of the pool could not be kept as hard links.</source>
        <translation>Файлы пула не удалось сохранить как жёсткие ссылки.</translation>
    </message>
    <message>
        <source>Bringing back package</source>
        <translation>Возвращение пакета</translation>
    </message>
    <message>
        <source>%1 was not brought back</source>
        <translation>%1 не возвращён</translation>
    </message>
    <message>
        <source>The file %1 is missing in the history, or has been changed.</source>
        <translation>Файл %1 отсутствует в истории или изменён.</translation>
    </message>
    <message>
        <source>%1 was brought back</source>
        <translation>%1 возвращён</translation>
    </message>
    <message>
        <source>It is not the package that the preview showed, so it was not added.</source>
        <translation>Это не тот пакет, который показал предпросмотр, поэтому он не добавлен.</translation>
    </message>
    <message>
        <source>Deleting old restore points</source>
        <translation>Удаление старых точек восстановления</translation>
    </message>
    <message>
        <source>No restore points deleted</source>
        <translation>Точки восстановления не удалены</translation>
    </message>
    <message>
        <source>Not all of the old restore points could be deleted. May you write to the folder %1?</source>
        <translation>Не все старые точки восстановления удалось удалить. Есть ли у вас право записи в каталог %1?</translation>
    </message>
    <message>
        <source>Not all restore points deleted</source>
        <translation>Удалены не все точки восстановления</translation>
    </message>
    <message numerus="yes">
        <source>%n restore point(s) deleted, %1 freed</source>
        <translation>
            <numerusform>%n точка восстановления удалена, освобождено %1</numerusform>
            <numerusform>%n точки восстановления удалены, освобождено %1</numerusform>
            <numerusform>%n точек восстановления удалено, освобождено %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Going back to an earlier state</source>
        <translation>Возврат к прежнему состоянию</translation>
    </message>
    <message>
        <source>The repository could not go back to the earlier state.</source>
        <translation>Не удалось вернуть репозиторий к прежнему состоянию.</translation>
    </message>
    <message>
        <source>The history does not keep the state before this change.</source>
        <translation>История не хранит состояние до этого изменения.</translation>
    </message>
    <message>
        <source>The state before this change cannot be read.</source>
        <translation>Состояние до этого изменения не читается.</translation>
    </message>
    <message numerus="yes">
        <source>The repository cannot go back: %n file(s) of the earlier state are missing or have been changed.</source>
        <translation>
            <numerusform>Вернуться нельзя: %n файл прежнего состояния отсутствует или изменён.</numerusform>
            <numerusform>Вернуться нельзя: %n файла прежнего состояния отсутствуют или изменены.</numerusform>
            <numerusform>Вернуться нельзя: %n файлов прежнего состояния отсутствуют или изменены.</numerusform>
        </translation>
    </message>
    <message>
        <source>Packages that another program has added after the interruption could not be taken in again. Their files are in the repository; add them once more.</source>
        <translation>Не удалось снова включить пакеты, которые другая программа добавила после прерывания. Их файлы находятся в репозитории; добавьте их ещё раз.</translation>
    </message>
    <message>
        <source>The job could not be brought to an end. What it had done is undone. Do it again if it is still wanted.</source>
        <translation>Задание не удалось довести до конца. То, что было сделано, отменено. Выполните его снова, если оно ещё нужно.</translation>
    </message>
    <message>
        <source>Files that an interrupted job had taken out could not be put back.</source>
        <translation>Не удалось вернуть файлы, которые изъяло прерванное задание.</translation>
    </message>
    <message>
        <source>Files could not be put back into the pool.</source>
        <translation>Не удалось вернуть файлы в пул.</translation>
    </message>
    <message>
        <source>The database could not be copied. Is there room on the disk?</source>
        <translation>Не удалось скопировать базу данных. Есть ли место на диске?</translation>
    </message>
    <message>
        <source>You may not write to this repository.</source>
        <translation>У вас нет права изменять этот репозиторий.</translation>
    </message>
    <message>
        <source>Its folder cannot be written: %1</source>
        <translation>В её папку нельзя записать: %1</translation>
    </message>
    <message>
        <source>Moving package</source>
        <translation>Перемещение пакета</translation>
    </message>
    <message>
        <source>Moving packages</source>
        <translation>Перемещение пакетов</translation>
    </message>
    <message>
        <source>Copying package</source>
        <translation>Копирование пакета</translation>
    </message>
    <message>
        <source>Copying packages</source>
        <translation>Копирование пакетов</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) moved: %1</source>
        <translation>
            <numerusform>%n пакет перемещён: %1</numerusform>
            <numerusform>%n пакета перемещено: %1</numerusform>
            <numerusform>%n пакетов перемещено: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) copied: %1</source>
        <translation>
            <numerusform>%n пакет скопирован: %1</numerusform>
            <numerusform>%n пакета скопировано: %1</numerusform>
            <numerusform>%n пакетов скопировано: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Already there: %1</source>
        <translation>Уже есть: %1</translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) moved: %2</source>
        <translation>
            <numerusform>Операция остановлена. Перемещено %1 из %n пакета: %2</numerusform>
            <numerusform>Операция остановлена. Перемещено %1 из %n пакетов: %2</numerusform>
            <numerusform>Операция остановлена. Перемещено %1 из %n пакетов: %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Operation stopped. %1 of %n package(s) copied: %2</source>
        <translation>
            <numerusform>Операция остановлена. Скопировано %1 из %n пакета: %2</numerusform>
            <numerusform>Операция остановлена. Скопировано %1 из %n пакетов: %2</numerusform>
            <numerusform>Операция остановлена. Скопировано %1 из %n пакетов: %2</numerusform>
        </translation>
    </message>
    <message>
        <source>the repository %1</source>
        <translation>репозиторий %1</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s) stay(s) here, since the repository %1 does not have the same.</source>
        <translation>
            <numerusform>%n пакет остаётся здесь: в репозитории %1 нет такого же.</numerusform>
            <numerusform>%n пакета остаются здесь: в репозитории %1 нет таких же.</numerusform>
            <numerusform>%n пакетов остаются здесь: в репозитории %1 нет таких же.</numerusform>
        </translation>
    </message>
    <message>
        <source>The repository will be signed with the key %1 instead.</source>
        <translation>Вместо этого репозиторий будет подписываться ключом %1.</translation>
    </message>
    <message>
        <source>It is not the file that its repository lists. Reload that repository.</source>
        <translation>Это не тот файл, который указан в его репозитории. Перечитайте тот репозиторий.</translation>
    </message>
    <message>
        <source>The database of the repository cannot be read, so nothing was removed.</source>
        <translation>Базу данных репозитория нельзя прочитать, поэтому ничего не удалено.</translation>
    </message>
    <message>
        <source>The repository is as it was before restore point %1</source>
        <translation>Репозиторий такой, каким был до точки восстановления %1</translation>
    </message>
    <message>
        <source>The change is done, but the history could not note it. It cannot be undone, and earlier states may lack its files.</source>
        <translation>Изменение выполнено, но записать его в историю не удалось. Отменить его нельзя, а прежним состояниям может не хватать файлов.</translation>
    </message>
    <message>
        <source>Contents cannot have the word %1, only these: %2</source>
        <translation>В Contents не может быть слова %1, только эти: %2</translation>
    </message>
    <message>
        <source>Contents cannot have allcomponents together with compatsymlink or nocompatsymlink.</source>
        <translation>В Contents не может быть allcomponents вместе с compatsymlink или nocompatsymlink.</translation>
    </message>
    <message>
        <source>The value of %1 is one line without #.</source>
        <translation>Значение %1 — одна строка без #.</translation>
    </message>
    <message>
        <source>The value of %1 cannot begin with an exclamation mark.</source>
        <translation>Значение %1 не может начинаться с восклицательного знака.</translation>
    </message>
    <message>
        <source>The origin cannot be empty.</source>
        <translation>Происхождение не может быть пустым.</translation>
    </message>
    <message>
        <source>A signing key is named by 8 to 40 hexadecimal digits: its fingerprint, or the end of it.</source>
        <translation>Ключ подписи задаётся 8–40 шестнадцатеричными цифрами: отпечатком или его концом.</translation>
    </message>
    <message>
        <source>Indices are valid for 1 to %1 days; 0 stands for no limit.</source>
        <translation>Индексы действительны от 1 до %1 дней; 0 — без ограничения.</translation>
    </message>
    <message>
        <source>The repository cannot be signed with the key %1: %2.</source>
        <translation>Репозиторий нельзя подписать ключом %1: %2.</translation>
    </message>
    <message>
        <source>The repository can get what it lacks, and then the files. This changes its description.</source>
        <translation>Недостающее можно добавить в репозиторий, а затем и файлы. При этом изменится его описание.</translation>
    </message>
    <message>
        <source>Its architecture-independent packages will serve the new architectures too.</source>
        <translation>Его пакеты для всех архитектур будут служить и новым архитектурам.</translation>
    </message>
    <message>
        <source>Add %1 to the repository and go on</source>
        <translation>Добавить %1 в репозиторий и продолжить</translation>
    </message>
    <message>
        <source>Adding %1 to the repository</source>
        <translation>Добавление %1 в репозиторий</translation>
    </message>
    <message>
        <source>Fetching the lists of your own sources</source>
        <translation>Загрузка списков ваших источников</translation>
    </message>
    <message numerus="yes">
        <source>the architecture(s) %1</source>
        <translation>
            <numerusform>архитектуры %1</numerusform>
            <numerusform>архитектур %1</numerusform>
            <numerusform>архитектур %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the component(s) %1</source>
        <translation>
            <numerusform>компонента %1</numerusform>
            <numerusform>компонентов %1</numerusform>
            <numerusform>компонентов %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n package file(s) cannot be added, because the repository lacks %1.</source>
        <translation>
            <numerusform>Нельзя добавить %n файл пакета, потому что в репозитории нет: %1.</numerusform>
            <numerusform>Нельзя добавить %n файла пакетов, потому что в репозитории нет: %1.</numerusform>
            <numerusform>Нельзя добавить %n файлов пакетов, потому что в репозитории нет: %1.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RepoWidget</name>
    <message>
        <source>Packages</source>
        <translation>Пакеты</translation>
    </message>
    <message>
        <source>Common</source>
        <translation>Общие</translation>
    </message>
    <message>
        <source>Publication</source>
        <translation>Публикация</translation>
    </message>
    <message>
        <source>Dependences</source>
        <translation>Зависимости</translation>
    </message>
    <message>
        <source>The indices of the repository hold no record of %1.</source>
        <translation>В индексах репозитория нет записи о %1.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Failed to get package information&lt;/b&gt;&lt;br&gt; %1</source>
        <translation>&lt;b&gt;Не удалось получить сведения о пакете&lt;/b&gt;&lt;br&gt; %1</translation>
    </message>
    <message>
        <source>Installability</source>
        <translation>Возможность установки</translation>
    </message>
</context>
<context>
    <name>RepositoryCommands</name>
    <message>
        <source>Repository is not created.</source>
        <translation>Репозиторий не создан.</translation>
    </message>
    <message>
        <source>The packages are imported from %1, so the repository can neither lie in it nor hold it. Choose another path or name.</source>
        <translation>Пакеты импортируются из %1, поэтому репозиторий не может находиться в этом каталоге или содержать его. Выберите другой путь или имя.</translation>
    </message>
    <message>
        <source>Repository for import is not created</source>
        <translation>Репозиторий для импорта не создан</translation>
    </message>
    <message>
        <source>The repository %1 is being deleted.</source>
        <translation>Репозиторий %1 удаляется.</translation>
    </message>
    <message>
        <source>Repository is created.</source>
        <translation>Репозиторий создан.</translation>
    </message>
    <message>
        <source>Select repository directory</source>
        <translation>Выберите каталог репозитория</translation>
    </message>
    <message>
        <source>The directory %1 does not exist.</source>
        <translation>Каталог %1 не существует.</translation>
    </message>
    <message>
        <source>Recent repositories</source>
        <translation>Недавние репозитории</translation>
    </message>
    <message>
        <source>The directory %1 does not exist. Do you want to remove it from the list of recent repositories?</source>
        <translation>Каталог %1 не существует. Убрать его из списка недавних репозиториев?</translation>
    </message>
    <message>
        <source>File %1/conf/distributions not found!</source>
        <translation>Файл %1/conf/distributions не найден!</translation>
    </message>
    <message>
        <source>Remove confirmation</source>
        <translation>Подтверждение удаления</translation>
    </message>
    <message>
        <source>Do you want to delete a repository %1?</source>
        <translation>Удалить репозиторий %1?</translation>
    </message>
    <message>
        <source>Repository is deleted.</source>
        <translation>Репозиторий удалён.</translation>
    </message>
    <message>
        <source>The directory %1 does not exist, so there was nothing to delete. The repository was closed and is no longer among the recent ones.</source>
        <translation>Каталог %1 не существует, поэтому удалять было нечего. Репозиторий закрыт и убран из списка недавних.</translation>
    </message>
    <message>
        <source>Repository is not deleted</source>
        <translation>Репозиторий не удалён</translation>
    </message>
    <message>
        <source>Repository is not deleted.</source>
        <translation>Репозиторий не удалён.</translation>
    </message>
    <message>
        <source>It is published, and clients use it.</source>
        <translation>Он опубликован, и им пользуются клиенты.</translation>
    </message>
    <message>
        <source>It is in this machine&apos;s local sources list, and stays there if you do not remove it first. apt then reports an error at each update.</source>
        <translation>Он есть в списке источников этого компьютера и останется там, если вы не удалите его оттуда заранее. Тогда apt будет сообщать об ошибке при каждом обновлении.</translation>
    </message>
    <message>
        <source>Do you want to unpublish the repository first?</source>
        <translation>Сначала снять репозиторий с публикации?</translation>
    </message>
    <message>
        <source>Otherwise a service goes on that has nothing to serve.</source>
        <translation>Иначе останется работать служба, которой нечего отдавать.</translation>
    </message>
    <message>
        <source>The directory %1 is deleted with everything in it, and cannot be brought back.</source>
        <translation>Каталог %1 будет удалён со всем содержимым, вернуть его будет нельзя.</translation>
    </message>
</context>
<context>
    <name>RepositoryHistory</name>
    <message>
        <source>The record of this point is damaged.</source>
        <translation>Запись этой точки повреждена.</translation>
    </message>
    <message>
        <source>The folders db and pool of the repository lie on different file systems.</source>
        <translation>Каталоги db и pool репозитория находятся на разных файловых системах.</translation>
    </message>
    <message>
        <source>The file system of the repository has no hard links.</source>
        <translation>Файловая система репозитория не поддерживает жёсткие ссылки.</translation>
    </message>
    <message>
        <source>the state before restore point %1</source>
        <translation>состояние до точки восстановления %1</translation>
    </message>
    <message>
        <source>The folder of the history is a link or a file, or belongs to another user: %1</source>
        <translation>Папка истории — ссылка или файл либо принадлежит другому пользователю: %1</translation>
    </message>
</context>
<context>
    <name>RepositoryKey</name>
    <message>
        <source>not in the key ring</source>
        <translation>отсутствует в связке ключей</translation>
    </message>
    <message>
        <source>gpg exported no key.</source>
        <translation>gpg не экспортировал ключ.</translation>
    </message>
</context>
<context>
    <name>RepositoryPanel</name>
    <message>
        <source>Components:</source>
        <translation>Компоненты:</translation>
    </message>
    <message>
        <source>Code name:</source>
        <translation>Кодовое имя:</translation>
    </message>
    <message>
        <source>Suite:</source>
        <translation>Выпуск:</translation>
    </message>
    <message>
        <source>Version:</source>
        <translation>Версия:</translation>
    </message>
    <message>
        <source>Architectures:</source>
        <translation>Архитектуры:</translation>
    </message>
    <message>
        <source>Signature (apt):</source>
        <translation>Подпись (apt):</translation>
    </message>
    <message>
        <source>Signing key:</source>
        <translation>Ключ подписи:</translation>
    </message>
    <message>
        <source>Key for clients:</source>
        <translation>Ключ для клиентов:</translation>
    </message>
    <message>
        <source>Copy public key</source>
        <translation>Скопировать открытый ключ</translation>
    </message>
    <message>
        <source>Save public key...</source>
        <translation>Сохранить открытый ключ...</translation>
    </message>
    <message>
        <source>You cannot change this repository: its files belong to another user, or its disk is read-only.</source>
        <translation>Вы не можете изменить этот репозиторий: его файлы принадлежат другому пользователю или его диск доступен только для чтения.</translation>
    </message>
    <message>
        <source>Signed</source>
        <translation>Подписан</translation>
    </message>
    <message>
        <source>Unsigned</source>
        <translation>Не подписан</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Save the public key, put it on each client as %1, and write signed-by=%1 into the brackets after &quot;deb&quot; in its source line.</source>
        <translation>Сохраните открытый ключ, поместите его на каждом клиенте в %1 и впишите signed-by=%1 в скобки после «deb» в строке источника.</translation>
    </message>
</context>
<context>
    <name>RepositoryRemoval</name>
    <message>
        <source>The directory %1 holds no repository.</source>
        <translation>В каталоге %1 нет репозитория.</translation>
    </message>
    <message>
        <source>The directory %1 belongs to the system, or holds a home directory or an open repository.</source>
        <translation>Каталог %1 является системным, или в нём находится домашний каталог либо открытый репозиторий.</translation>
    </message>
    <message>
        <source>Not everything in %1 could be deleted.</source>
        <translation>Не удалось удалить всё содержимое %1.</translation>
    </message>
    <message>
        <source>It holds these repositories: %1</source>
        <translation>В нём находятся эти репозитории: %1</translation>
    </message>
    <message>
        <source>Nothing was deleted, because the directory %1 cannot be written.</source>
        <translation>Ничего не удалено, потому что в каталог %1 нельзя записывать.</translation>
    </message>
</context>
<context>
    <name>SearchPackageWidget</name>
    <message>
        <source>Start typing the pacakge name here...</source>
        <translation>Начните вводить имя пакета...</translation>
    </message>
    <message>
        <source>Package name</source>
        <translation>Имя пакета</translation>
    </message>
    <message>
        <source>Searching</source>
        <translation>Выполняется поиск</translation>
    </message>
    <message>
        <source>Packages found</source>
        <translation>Найденные пакеты</translation>
    </message>
    <message>
        <source>&amp;Architecture:</source>
        <translation>&amp;Архитектура:</translation>
    </message>
    <message>
        <source>&amp;Repository:</source>
        <translation>&amp;Репозиторий:</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Поиск...</translation>
    </message>
    <message>
        <source>The name of a package cannot begin with &quot;%1&quot;</source>
        <translation>Имя пакета не может начинаться с «%1»</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Все</translation>
    </message>
    <message>
        <source>No packages found</source>
        <translation>Пакеты не найдены</translation>
    </message>
    <message numerus="yes">
        <source>%n package(s)</source>
        <translation>
            <numerusform>%n пакет</numerusform>
            <numerusform>%n пакета</numerusform>
            <numerusform>%n пакетов</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n package(s)</source>
        <translation>
            <numerusform>%1 из %n пакета</numerusform>
            <numerusform>%1 из %n пакетов</numerusform>
            <numerusform>%1 из %n пакетов</numerusform>
        </translation>
    </message>
    <message>
        <source>Search &amp;descriptions too</source>
        <translation>Искать и в &amp;описаниях</translation>
    </message>
    <message>
        <source>Finds the packages with each of the words in the name or in the short description</source>
        <translation>Находит пакеты, в имени или кратком описании которых есть каждое из слов</translation>
    </message>
</context>
<context>
    <name>Sections</name>
    <message>
        <source>System Administration</source>
        <translation>Системное администрирование</translation>
    </message>
    <message>
        <source>Base System</source>
        <translation>Базовая система</translation>
    </message>
    <message>
        <source>Mono/CLI Infrastructure</source>
        <translation>Инфраструктура Mono/CLI</translation>
    </message>
    <message>
        <source>Communication</source>
        <translation>Связь</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>По умолчанию</translation>
    </message>
    <message>
        <source>Databases</source>
        <translation>Базы данных</translation>
    </message>
    <message>
        <source>Development</source>
        <translation>Разработка</translation>
    </message>
    <message>
        <source>Documentation</source>
        <translation>Документация</translation>
    </message>
    <message>
        <source>Debug</source>
        <translation>Отладка</translation>
    </message>
    <message>
        <source>Editors</source>
        <translation>Редакторы</translation>
    </message>
    <message>
        <source>Electronics</source>
        <translation>Электроника</translation>
    </message>
    <message>
        <source>Embedded Devices</source>
        <translation>Встраиваемые устройства</translation>
    </message>
    <message>
        <source>Fonts</source>
        <translation>Шрифты</translation>
    </message>
    <message>
        <source>Games and Amusement</source>
        <translation>Игры и развлечения</translation>
    </message>
    <message>
        <source>GNOME Desktop Environment</source>
        <translation>Среда рабочего стола GNOME</translation>
    </message>
    <message>
        <source>Graphics</source>
        <translation>Графика</translation>
    </message>
    <message>
        <source>GNU R statistical system</source>
        <translation>Статистическая система GNU R</translation>
    </message>
    <message>
        <source>Gnustep Desktop Environment</source>
        <translation>Среда рабочего стола GNUstep</translation>
    </message>
    <message>
        <source>Amateur Radio</source>
        <translation>Любительское радио</translation>
    </message>
    <message>
        <source>Haskell Programming Language</source>
        <translation>Язык программирования Haskell</translation>
    </message>
    <message>
        <source>Web servers</source>
        <translation>Веб-серверы</translation>
    </message>
    <message>
        <source>Interpreted Computer Languages</source>
        <translation>Интерпретируемые языки программирования</translation>
    </message>
    <message>
        <source>Java Programming Language</source>
        <translation>Язык программирования Java</translation>
    </message>
    <message>
        <source>KDE Desktop Environment</source>
        <translation>Среда рабочего стола KDE</translation>
    </message>
    <message>
        <source>Kernel and modules</source>
        <translation>Ядро и модули</translation>
    </message>
    <message>
        <source>Libraries - Development</source>
        <translation>Библиотеки — разработка</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>Библиотеки</translation>
    </message>
    <message>
        <source>Lisp Programming Language</source>
        <translation>Язык программирования Lisp</translation>
    </message>
    <message>
        <source>Localization</source>
        <translation>Локализация</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>Электронная почта</translation>
    </message>
    <message>
        <source>Mathematics</source>
        <translation>Математика</translation>
    </message>
    <message>
        <source>Miscellaneous</source>
        <translation>Разное</translation>
    </message>
    <message>
        <source>Networking</source>
        <translation>Сеть</translation>
    </message>
    <message>
        <source>Newsgroup</source>
        <translation>Группы новостей</translation>
    </message>
    <message>
        <source>OCaml Programming Language</source>
        <translation>Язык программирования OCaml</translation>
    </message>
    <message>
        <source>Libraries - Old</source>
        <translation>Библиотеки — устаревшие</translation>
    </message>
    <message>
        <source>Cross Platform</source>
        <translation>Кроссплатформенное ПО</translation>
    </message>
    <message>
        <source>Perl Programming Language</source>
        <translation>Язык программирования Perl</translation>
    </message>
    <message>
        <source>PHP Programming Language</source>
        <translation>Язык программирования PHP</translation>
    </message>
    <message>
        <source>Python Programming Language</source>
        <translation>Язык программирования Python</translation>
    </message>
    <message>
        <source>Ruby Programming Language</source>
        <translation>Язык программирования Ruby</translation>
    </message>
    <message>
        <source>Science</source>
        <translation>Наука</translation>
    </message>
    <message>
        <source>Shells</source>
        <translation>Командные оболочки</translation>
    </message>
    <message>
        <source>Multimedia</source>
        <translation>Мультимедиа</translation>
    </message>
    <message>
        <source>Tasks</source>
        <translation>Задачи</translation>
    </message>
    <message>
        <source>TeX Authoring</source>
        <translation>Вёрстка в TeX</translation>
    </message>
    <message>
        <source>Word Processing</source>
        <translation>Обработка текста</translation>
    </message>
    <message>
        <source>Utilities</source>
        <translation>Утилиты</translation>
    </message>
    <message>
        <source>Version Control Systems</source>
        <translation>Системы управления версиями</translation>
    </message>
    <message>
        <source>Video software</source>
        <translation>Программы для работы с видео</translation>
    </message>
    <message>
        <source>World Wide Web</source>
        <translation>Всемирная паутина</translation>
    </message>
    <message>
        <source>Miscellaneous  - Graphical</source>
        <translation>Разное — графические программы</translation>
    </message>
    <message>
        <source>Xfce Desktop Environment</source>
        <translation>Среда рабочего стола Xfce</translation>
    </message>
    <message>
        <source>Zope/Plone Environment</source>
        <translation>Среда Zope/Plone</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Неизвестно</translation>
    </message>
    <message>
        <source>Converted From RPM by Alien</source>
        <translation>Преобразовано из RPM программой Alien</translation>
    </message>
    <message>
        <source>Internationalization and localization</source>
        <translation>Интернационализация и локализация</translation>
    </message>
    <message>
        <source>Meta Packages</source>
        <translation>Метапакеты</translation>
    </message>
    <message>
        <source>Education</source>
        <translation>Образование</translation>
    </message>
    <message>
        <source>GObject Introspection data</source>
        <translation>Данные интроспекции GObject</translation>
    </message>
    <message>
        <source>Restricted On Export</source>
        <translation>С ограничениями на экспорт</translation>
    </message>
    <message>
        <source>non free</source>
        <translation>несвободное ПО</translation>
    </message>
    <message>
        <source>contrib</source>
        <translation>contrib</translation>
    </message>
</context>
<context>
    <name>ServerText</name>
    <message>
        <source>The path %1 cannot be served. It must be the directory of a repository, and its name may consist of letters, digits, blanks between them and the characters %2.</source>
        <translation>Путь %1 нельзя опубликовать. Это должен быть каталог репозитория, а его имя может состоять из букв, цифр, пробелов между ними и символов %2.</translation>
    </message>
    <message>
        <source>The service did not start, or ended at once. The administrator finds the reason in the system&apos;s journal: journalctl -u %1 -u velt-admin-repo-helper</source>
        <translation>Служба не запустилась или сразу завершилась. Администратор найдёт причину в журнале системы: journalctl -u %1 -u velt-admin-repo-helper</translation>
    </message>
    <message>
        <source>The service %1 could not be stopped. &quot;systemctl status %1&quot; tells more.</source>
        <translation>Не удалось остановить службу %1. Подробности покажет «systemctl status %1».</translation>
    </message>
    <message>
        <source>The system refused. The administrator finds the reason in its journal: journalctl -u velt-admin-repo-helper</source>
        <translation>Система отказала. Администратор найдёт причину в её журнале: journalctl -u velt-admin-repo-helper</translation>
    </message>
</context>
<context>
    <name>SettingsCommands</name>
    <message>
        <source>Package signing</source>
        <translation>Подпись пакетов</translation>
    </message>
    <message>
        <source>No key is chosen to sign packages with. Do you want to choose one?</source>
        <translation>Ключ для подписи пакетов не выбран. Выбрать его?</translation>
    </message>
    <message>
        <source>The list cannot be stored in %1.</source>
        <translation>Не удалось сохранить список в %1.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Настройки</translation>
    </message>
    <message>
        <source>The settings cannot be stored in %1.</source>
        <translation>Не удалось сохранить настройки в %1.</translation>
    </message>
</context>
<context>
    <name>SignatureEffect</name>
    <message>
        <source>The repository is not signed.</source>
        <translation>Репозиторий не подписан.</translation>
    </message>
    <message>
        <source>Signed with: %1</source>
        <translation>Подписан ключом: %1</translation>
    </message>
    <message>
        <source>Signed with the default key: %1</source>
        <translation>Подписан ключом по умолчанию: %1</translation>
    </message>
    <message>
        <source>Signed with the default key, which could not be found out.</source>
        <translation>Подписан ключом по умолчанию, который не удалось определить.</translation>
    </message>
    <message>
        <source>The repository is to be signed, but there is no key that can sign.</source>
        <translation>Репозиторий должен быть подписан, но нет ключа, который может подписывать.</translation>
    </message>
</context>
<context>
    <name>SigningAdvice</name>
    <message>
        <source>The passphrase of the key was not given.</source>
        <translation>Фраза-пароль ключа не введена.</translation>
    </message>
    <message>
        <source>The passphrase of the key was wrong.</source>
        <translation>Фраза-пароль ключа неверна.</translation>
    </message>
    <message>
        <source>The key has a passphrase, and gpg could not ask for it. Install a pinentry program that opens a window, such as pinentry-qt, and try again.</source>
        <translation>У ключа есть фраза-пароль, но gpg не удалось её запросить. Установите программу pinentry, открывающую окно, например pinentry-qt, и повторите попытку.</translation>
    </message>
    <message>
        <source>The key ring has no key of yours that can sign. Make one with KGpg first.</source>
        <translation>В связке ключей нет вашего ключа, которым можно подписывать. Сначала создайте его в KGpg.</translation>
    </message>
</context>
<context>
    <name>SigningCheck</name>
    <message>
        <source>gpg crashed.</source>
        <translation>gpg аварийно завершился.</translation>
    </message>
    <message>
        <source>gpg ended with the code %1 and did not say why.</source>
        <translation>gpg завершился с кодом %1 и не сообщил причину.</translation>
    </message>
</context>
<context>
    <name>SigningCommands</name>
    <message>
        <source>Sign confirmation</source>
        <translation>Подтверждение подписи</translation>
    </message>
    <message>
        <source>not in the key ring</source>
        <translation>отсутствует в связке ключей</translation>
    </message>
    <message>
        <source>The chosen key cannot sign. Do you want to choose another one?</source>
        <translation>Выбранным ключом нельзя подписывать. Выбрать другой?</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Key: %1</source>
        <translation>Ключ: %1</translation>
    </message>
    <message>
        <source>Do you want to sign selected packages?</source>
        <translation>Подписать выбранные пакеты?</translation>
    </message>
    <message>
        <source>The public key cannot be exported.</source>
        <translation>Не удалось экспортировать открытый ключ.</translation>
    </message>
    <message>
        <source>Public key is copied to clipboard</source>
        <translation>Открытый ключ скопирован в буфер обмена</translation>
    </message>
    <message>
        <source>Save public key</source>
        <translation>Сохранение открытого ключа</translation>
    </message>
    <message>
        <source>Keys (*.asc)</source>
        <translation>Ключи (*.asc)</translation>
    </message>
    <message>
        <source>The public key is saved in %1.</source>
        <translation>Открытый ключ сохранён в %1.</translation>
    </message>
    <message>
        <source>The public key cannot be saved in %1.</source>
        <translation>Не удалось сохранить открытый ключ в %1.</translation>
    </message>
</context>
<context>
    <name>SigningKey</name>
    <message>
        <source>no secret key</source>
        <translation>нет секретного ключа</translation>
    </message>
    <message>
        <source>expired on %1</source>
        <translation>срок действия истёк %1</translation>
    </message>
    <message>
        <source>expired</source>
        <translation>срок действия истёк</translation>
    </message>
    <message>
        <source>revoked</source>
        <translation>отозван</translation>
    </message>
    <message>
        <source>disabled</source>
        <translation>отключён</translation>
    </message>
    <message>
        <source>not meant for signing</source>
        <translation>не предназначен для подписи</translation>
    </message>
    <message>
        <source>another key has the same id</source>
        <translation>у другого ключа тот же идентификатор</translation>
    </message>
    <message>
        <source>The key expires on %1.</source>
        <translation>Срок действия ключа истекает %1.</translation>
    </message>
</context>
<context>
    <name>SigningSwitch</name>
    <message>
        <source>Error</source>
        <translation>Ошибка</translation>
    </message>
    <message>
        <source>Key verification error:
%1</source>
        <translation>Ошибка проверки ключа:
%1</translation>
    </message>
    <message>
        <source>There is no key that can sign. Make one with KGpg first.</source>
        <translation>Нет ключа, которым можно подписывать. Сначала создайте его в KGpg.</translation>
    </message>
</context>
<context>
    <name>SourcesListCommand</name>
    <message>
        <source>The program %1 is not installed.</source>
        <translation>Программа %1 не установлена.</translation>
    </message>
</context>
<context>
    <name>StartSelectActionDialog</name>
    <message>
        <source>Select action</source>
        <translation>Выбор действия</translation>
    </message>
    <message>
        <source>There are no repositories open at the moment to add packages, please select the next action</source>
        <translation>Сейчас нет открытых репозиториев, в которые можно добавить пакеты. Выберите дальнейшее действие</translation>
    </message>
    <message>
        <source>Create repo</source>
        <translation>Создать репозиторий</translation>
    </message>
    <message>
        <source>Open repo</source>
        <translation>Открыть репозиторий</translation>
    </message>
</context>
<context>
    <name>StateDifferenceDialog</name>
    <message>
        <source>Difference</source>
        <translation>Различия</translation>
    </message>
    <message>
        <source>From the state</source>
        <translation>От состояния</translation>
    </message>
    <message>
        <source>To the state</source>
        <translation>До состояния</translation>
    </message>
    <message>
        <source>Package name</source>
        <translation>Имя пакета</translation>
    </message>
    <message>
        <source>Changes between the states</source>
        <translation>Изменения между состояниями</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Сейчас</translation>
    </message>
    <message>
        <source>Comparing...</source>
        <translation>Сравнение...</translation>
    </message>
    <message>
        <source>A record between these states is missing or damaged.</source>
        <translation>Запись между этими состояниями отсутствует или повреждена.</translation>
    </message>
    <message>
        <source>The packages are the same.</source>
        <translation>Пакеты одинаковы.</translation>
    </message>
</context>
<context>
    <name>SystemFile</name>
    <message>
        <source>it is a link or no regular file</source>
        <translation>это ссылка или не обычный файл</translation>
    </message>
</context>
<context>
    <name>SystemdService</name>
    <message>
        <source>The system bus cannot be reached: %1</source>
        <translation>Системная шина недоступна: %1</translation>
    </message>
    <message>
        <source>There is no service manager (systemd) on the system bus.</source>
        <translation>На системной шине нет диспетчера служб (systemd).</translation>
    </message>
    <message>
        <source>The service manager allows this to the administrator only.</source>
        <translation>Диспетчер служб разрешает это только администратору.</translation>
    </message>
    <message>
        <source>There is no such service: %1</source>
        <translation>Такой службы нет: %1</translation>
    </message>
    <message>
        <source>The administrator has masked the service: %1</source>
        <translation>Администратор замаскировал службу: %1</translation>
    </message>
    <message>
        <source>The service manager answers: %1</source>
        <translation>Ответ диспетчера служб: %1</translation>
    </message>
    <message>
        <source>The service %1 has ended right after its start (%2).</source>
        <translation>Служба %1 завершилась сразу после запуска (%2).</translation>
    </message>
    <message>
        <source>The service manager has not done with %1 in time.</source>
        <translation>Диспетчер служб не справился с %1 за отведённое время.</translation>
    </message>
    <message>
        <source>The service %1 has failed.</source>
        <translation>В службе %1 произошёл сбой.</translation>
    </message>
    <message>
        <source>The service %1 was not ready in time.</source>
        <translation>Служба %1 не была готова вовремя.</translation>
    </message>
    <message>
        <source>Something that the service %1 needs has failed.</source>
        <translation>Произошёл сбой в том, что требуется службе %1.</translation>
    </message>
    <message>
        <source>The job of the service %1 was cancelled.</source>
        <translation>Задание службы %1 было отменено.</translation>
    </message>
    <message>
        <source>The job of the service %1 did not apply to its state.</source>
        <translation>Задание службы %1 не подходило к её состоянию.</translation>
    </message>
    <message>
        <source>The job of the service %1 has ended with &quot;%2&quot;.</source>
        <translation>Задание службы %1 завершилось с результатом «%2».</translation>
    </message>
    <message>
        <source>The service %1 has nothing that says when to start it.</source>
        <translation>Для службы %1 не указано, когда её запускать.</translation>
    </message>
    <message>
        <source>The service %1 does not stay active.</source>
        <translation>Служба %1 не остаётся активной.</translation>
    </message>
</context>
<context>
    <name>TabBarActions</name>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>Close others</source>
        <translation>Закрыть остальные</translation>
    </message>
    <message>
        <source>Copy path</source>
        <translation>Копировать путь</translation>
    </message>
</context>
<context>
    <name>TarReader</name>
    <message>
        <source>The archive is damaged.</source>
        <translation>Архив повреждён.</translation>
    </message>
    <message>
        <source>The archive is damaged: its end is missing.</source>
        <translation>Архив повреждён: отсутствует его конец.</translation>
    </message>
</context>
<context>
    <name>TextPage</name>
    <message>
        <source>%1 is a program and no text.</source>
        <translation>%1 — программа, а не текст.</translation>
    </message>
    <message>
        <source>%1, of which this is the beginning. The whole text is in the package.</source>
        <translation>%1; здесь показано начало. Весь текст находится в пакете.</translation>
    </message>
</context>
<context>
    <name>TreeFilter</name>
    <message>
        <source>Packet Filter</source>
        <translation>Фильтр пакетов</translation>
    </message>
    <message>
        <source>Packages search</source>
        <translation>Поиск пакетов</translation>
    </message>
    <message>
        <source>Show depends undefined</source>
        <translation>Показывать непроверенные зависимости</translation>
    </message>
    <message>
        <source>Show depends error</source>
        <translation>Показывать неудовлетворённые зависимости</translation>
    </message>
    <message>
        <source>Show depends success</source>
        <translation>Показывать удовлетворённые зависимости</translation>
    </message>
    <message>
        <source>Only packages that cannot be installed</source>
        <translation>Только пакеты, которые нельзя установить</translation>
    </message>
    <message>
        <source>Only packages that break others</source>
        <translation>Только пакеты, мешающие другим</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Архитектура</translation>
    </message>
    <message>
        <source>Component</source>
        <translation>Компонент</translation>
    </message>
    <message>
        <source>Section</source>
        <translation>Раздел</translation>
    </message>
    <message>
        <source>Signature</source>
        <translation>Подпись</translation>
    </message>
    <message>
        <source>Signed</source>
        <translation>Подписан</translation>
    </message>
    <message>
        <source>Unsigned</source>
        <translation>Не подписан</translation>
    </message>
    <message>
        <source>not checked</source>
        <translation>не проверено</translation>
    </message>
    <message>
        <source>not satisfied</source>
        <translation>не удовлетворены</translation>
    </message>
    <message>
        <source>satisfied</source>
        <translation>удовлетворены</translation>
    </message>
    <message>
        <source>Dependences: %1</source>
        <translation>Зависимости: %1</translation>
    </message>
    <message>
        <source>none</source>
        <translation>нет</translation>
    </message>
    <message>
        <source>Cannot be installed</source>
        <translation>Нельзя установить</translation>
    </message>
    <message>
        <source>Breaks others</source>
        <translation>Мешает другим</translation>
    </message>
    <message>
        <source>Architecture: %1</source>
        <translation>Архитектура: %1</translation>
    </message>
    <message>
        <source>Component: %1</source>
        <translation>Компонент: %1</translation>
    </message>
    <message>
        <source>Section: %1</source>
        <translation>Раздел: %1</translation>
    </message>
    <message>
        <source>Signature: %1</source>
        <translation>Подпись: %1</translation>
    </message>
    <message>
        <source>signed</source>
        <translation>подписан</translation>
    </message>
    <message>
        <source>unsigned</source>
        <translation>не подписан</translation>
    </message>
</context>
<context>
    <name>UpgradeCommands</name>
    <message>
        <source>No source selected</source>
        <translation>Источник не выбран</translation>
    </message>
    <message>
        <source>Since you have not selected any source, the update will be canceled</source>
        <translation>Вы не выбрали ни одного источника, поэтому обновление будет отменено</translation>
    </message>
</context>
<context>
    <name>UpgradePackagesDialog</name>
    <message>
        <source>Choose packages to upgrade</source>
        <translation>Выбор пакетов для обновления</translation>
    </message>
    <message>
        <source>The chosen packages are fetched and take the places of the old versions.</source>
        <translation>Выбранные пакеты будут загружены и заменят старые версии.</translation>
    </message>
    <message>
        <source>Package</source>
        <translation>Пакет</translation>
    </message>
    <message>
        <source>Architecture</source>
        <translation>Архитектура</translation>
    </message>
    <message>
        <source>Old version</source>
        <translation>Старая версия</translation>
    </message>
    <message>
        <source>New version</source>
        <translation>Новая версия</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Источник</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Preview...</source>
        <translation>Предпросмотр...</translation>
    </message>
</context>
<context>
    <name>UpgradeSourcesDialog</name>
    <message>
        <source>Select sources to upgrade</source>
        <translation>Выбор источников для обновления</translation>
    </message>
    <message>
        <source>Newer versions of the packages are looked for in these sources. Which ones are offered here is set in Settings, Edit external repos.</source>
        <translation>В этих источниках ищутся более новые версии пакетов. Какие из них предлагаются здесь, задаётся в меню «Настройки», «Изменить внешние репозитории».</translation>
    </message>
    <message>
        <source>Repository</source>
        <translation>Репозиторий</translation>
    </message>
    <message>
        <source>Alias</source>
        <translation>Псевдоним</translation>
    </message>
    <message>
        <source>Asking apt which repositories it knows...</source>
        <translation>Запрос известных apt репозиториев...</translation>
    </message>
    <message>
        <source>apt does not say which repositories it knows; only your own are shown. %1</source>
        <translation>apt не сообщает, какие репозитории ему известны; показаны только ваши. %1</translation>
    </message>
</context>
<context>
    <name>VeltAboutDialog</name>
    <message>
        <source>About %1</source>
        <translation>О программе %1</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Версия %1</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes without any warranty.</source>
        <translation>Свободное программное обеспечение на условиях GNU General Public License версии 3 или новее. Предоставляется без каких-либо гарантий.</translation>
    </message>
    <message>
        <source>About Qt</source>
        <translation>О Qt</translation>
    </message>
</context>
<context>
    <name>VeltAdminRepoInterface</name>
    <message>
        <source>The call failed.</source>
        <translation>Вызов не удался.</translation>
    </message>
    <message>
        <source>Out of memory.</source>
        <translation>Недостаточно памяти.</translation>
    </message>
    <message>
        <source>The called service is not known.</source>
        <translation>Вызываемая служба неизвестна.</translation>
    </message>
    <message>
        <source>Timeout reply.</source>
        <translation>Истекло время ожидания ответа.</translation>
    </message>
    <message>
        <source>The address given is not valid.</source>
        <translation>Указан недопустимый адрес.</translation>
    </message>
    <message>
        <source>The call/operation is not supported.</source>
        <translation>Вызов или операция не поддерживается.</translation>
    </message>
    <message>
        <source>The limits allocated to this process/call/connection exceeded the pre-defined values.</source>
        <translation>Превышены ограничения, установленные для этого процесса, вызова или соединения.</translation>
    </message>
    <message>
        <source>Authorization error.</source>
        <translation>Ошибка авторизации.</translation>
    </message>
    <message>
        <source>No server found.</source>
        <translation>Сервер не найден.</translation>
    </message>
    <message>
        <source>No network found.</source>
        <translation>Сеть не найдена.</translation>
    </message>
    <message>
        <source>QDBusServer tried to bind to an address that is already in use.</source>
        <translation>QDBusServer попытался занять уже используемый адрес.</translation>
    </message>
    <message>
        <source>The call/process/message was sent after QDBusConnection disconnected.</source>
        <translation>Вызов, процесс или сообщение были отправлены после отключения QDBusConnection.</translation>
    </message>
    <message>
        <source>The arguments passed to this call/operation are not valid.</source>
        <translation>Переданы недопустимые аргументы вызова или операции.</translation>
    </message>
    <message>
        <source>The method called was not found in this object/interface with the given parameters.</source>
        <translation>Вызванный метод с такими параметрами не найден в этом объекте или интерфейсе.</translation>
    </message>
    <message>
        <source>The type signature is not valid or compatible.</source>
        <translation>Сигнатура типа недопустима или несовместима.</translation>
    </message>
    <message>
        <source>The interface is not known in this object.</source>
        <translation>Интерфейс неизвестен этому объекту.</translation>
    </message>
    <message>
        <source>The object path points to an object that does not exist.</source>
        <translation>Путь указывает на несуществующий объект.</translation>
    </message>
    <message>
        <source>The property does not exist in this interface.</source>
        <translation>В этом интерфейсе нет такого свойства.</translation>
    </message>
    <message>
        <source>The property set failed because the property is read-only.</source>
        <translation>Не удалось установить свойство, так как оно доступно только для чтения.</translation>
    </message>
    <message>
        <source>An internal error occurred.</source>
        <translation>Произошла внутренняя ошибка.</translation>
    </message>
    <message>
        <source>The service requested is invalid.</source>
        <translation>Запрошена недопустимая служба.</translation>
    </message>
    <message>
        <source>The object path provided is invalid.</source>
        <translation>Указан недопустимый путь объекта.</translation>
    </message>
    <message>
        <source>The interface is invalid.</source>
        <translation>Недопустимый интерфейс.</translation>
    </message>
    <message>
        <source>The member is invalid.</source>
        <translation>Недопустимый элемент.</translation>
    </message>
    <message>
        <source>Unknown error.</source>
        <translation>Неизвестная ошибка.</translation>
    </message>
</context>
<context>
    <name>cli</name>
    <message>
        <source>--packages names the packages to export.</source>
        <translation>--packages называет пакеты для экспорта.</translation>
    </message>
    <message>
        <source>%1 exists. Is it to be replaced?</source>
        <translation>%1 уже существует. Заменить?</translation>
    </message>
    <message>
        <source>The archive was not written.</source>
        <translation>Архив не записан.</translation>
    </message>
    <message>
        <source>Wrote %1.</source>
        <translation>Записан %1.</translation>
    </message>
    <message>
        <source>There is no file or folder %1.</source>
        <translation>Нет файла или папки %1.</translation>
    </message>
    <message>
        <source>There are no packages in %1.</source>
        <translation>В %1 нет пакетов.</translation>
    </message>
    <message>
        <source>%1 is not FIELD=VALUE with one of these fields, each once: %2</source>
        <translation>%1 — не ПОЛЕ=ЗНАЧЕНИЕ с одним из этих полей, каждое один раз: %2</translation>
    </message>
    <message>
        <source>The path cannot be empty.</source>
        <translation>Путь не может быть пустым.</translation>
    </message>
    <message>
        <source>The change deletes %1 packages: %2. Is that right?</source>
        <translation>Изменение удалит пакеты (%1): %2. Всё верно?</translation>
    </message>
    <message>
        <source>The description of the repository cannot be read.</source>
        <translation>Описание репозитория не читается.</translation>
    </message>
    <message>
        <source>%1 is not empty, so the repository was not moved.</source>
        <translation>%1 не пуста, поэтому репозиторий не перемещён.</translation>
    </message>
    <message>
        <source>The repository is published. Unpublish it first.</source>
        <translation>Репозиторий опубликован. Сначала прекратите публикацию.</translation>
    </message>
    <message>
        <source>The repository was not changed.</source>
        <translation>Репозиторий не изменён.</translation>
    </message>
    <message>
        <source>Changed the repository %1.</source>
        <translation>Репозиторий %1 изменён.</translation>
    </message>
    <message>
        <source>%1 lacks: %2</source>
        <translation>%1 не хватает: %2</translation>
    </message>
    <message>
        <source>Checked: %1, broken: %2</source>
        <translation>Проверено: %1, с нарушениями: %2</translation>
    </message>
    <message>
        <source>Only packages of this component</source>
        <translation>Только пакеты этого компонента</translation>
    </message>
    <message>
        <source>Only packages of this architecture</source>
        <translation>Только пакеты этой архитектуры</translation>
    </message>
    <message>
        <source>What becomes of a package that is there already: fail (the default) refuses the file, newer and older replace by version, all replaces, none keeps</source>
        <translation>Что делать с уже имеющимся пакетом: fail (по умолчанию) отклоняет файл, newer и older заменяют по версии, all заменяет, none оставляет</translation>
    </message>
    <message>
        <source>The component for all packages, instead of their own</source>
        <translation>Компонент для всех пакетов вместо их собственного</translation>
    </message>
    <message>
        <source>Sign a copy of each file with this key, and add that</source>
        <translation>Подписать копию каждого файла этим ключом и добавить её</translation>
    </message>
    <message>
        <source>Also the packages on which they depend</source>
        <translation>Также пакеты, от которых они зависят</translation>
    </message>
    <message>
        <source>Where dependencies are looked for: local (the default) is the repository itself, public are apt&apos;s sources</source>
        <translation>Где искать зависимости: local (по умолчанию) — сам репозиторий, public — источники apt</translation>
    </message>
    <message>
        <source>Look in this source, written as after deb in a sources list; can be repeated; without it, in all that apt and the settings have</source>
        <translation>Искать в этом источнике, записанном как после deb в списке источников; можно повторять; без него — во всех, что есть у apt и в настройках</translation>
    </message>
    <message>
        <source>Only list the newer versions</source>
        <translation>Только перечислить более новые версии</translation>
    </message>
    <message>
        <source>Only these packages, separated by commas; can be repeated</source>
        <translation>Только эти пакеты, через запятую; можно повторять</translation>
    </message>
    <message>
        <source>The key to sign with, instead of that in the settings</source>
        <translation>Ключ для подписи вместо указанного в настройках</translation>
    </message>
    <message>
        <source>Delete the packages under a new code name, instead of carrying them over</source>
        <translation>При новом кодовом имени удалить пакеты, а не переносить их</translation>
    </message>
    <message>
        <source>The code name of the distribution</source>
        <translation>Кодовое имя дистрибутива</translation>
    </message>
    <message>
        <source>Architectures, separated by commas</source>
        <translation>Архитектуры через запятую</translation>
    </message>
    <message>
        <source>Components, separated by commas</source>
        <translation>Компоненты через запятую</translation>
    </message>
    <message>
        <source>The suite, such as stable</source>
        <translation>Выпуск (suite), например stable</translation>
    </message>
    <message>
        <source>The version of the distribution</source>
        <translation>Версия дистрибутива</translation>
    </message>
    <message>
        <source>Who makes the packages</source>
        <translation>Кто делает пакеты</translation>
    </message>
    <message>
        <source>What clients can select the repository by</source>
        <translation>По чему клиенты могут выбирать репозиторий</translation>
    </message>
    <message>
        <source>Sign the repository with the default key</source>
        <translation>Подписывать репозиторий ключом по умолчанию</translation>
    </message>
    <message>
        <source>Make a repository in a new or empty folder</source>
        <translation>Создать репозиторий в новой или пустой папке</translation>
    </message>
    <message>
        <source>Show the description of a repository, and how much it holds</source>
        <translation>Показать описание репозитория и сколько в нём пакетов</translation>
    </message>
    <message>
        <source>List the packages, or those whose names match one of the patterns</source>
        <translation>Перечислить пакеты или те, чьи имена подходят под один из шаблонов</translation>
    </message>
    <message>
        <source>Add package files, and those below folders; - reads their names from standard input</source>
        <translation>Добавить файлы пакетов и файлы в папках; - читает их имена со стандартного ввода</translation>
    </message>
    <message>
        <source>Remove packages</source>
        <translation>Удалить пакеты</translation>
    </message>
    <message>
        <source>Fetch packages from apt&apos;s sources, and add them</source>
        <translation>Получить пакеты из источников apt и добавить их</translation>
    </message>
    <message>
        <source>Check whether the dependencies of the packages can be met</source>
        <translation>Проверить, выполнимы ли зависимости пакетов</translation>
    </message>
    <message>
        <source>Replace packages with newer versions from apt&apos;s sources</source>
        <translation>Заменить пакеты более новыми версиями из источников apt</translation>
    </message>
    <message>
        <source>Write the repository, or some of its packages, to a .tgz archive</source>
        <translation>Записать репозиторий или часть его пакетов в архив .tgz</translation>
    </message>
    <message>
        <source>Add the packages in an archive, or those below a folder</source>
        <translation>Добавить пакеты из архива или из папки</translation>
    </message>
    <message>
        <source>Sign packages</source>
        <translation>Подписать пакеты</translation>
    </message>
    <message>
        <source>List the keys that can sign, and those that no longer can</source>
        <translation>Перечислить ключи, которыми можно подписывать, и те, которыми уже нельзя</translation>
    </message>
    <message>
        <source>Publish a repository to other machines, over HTTP on the port 8000 if nothing else is said</source>
        <translation>Опубликовать репозиторий для других машин: по HTTP на порту 8000, если не сказано иное</translation>
    </message>
    <message>
        <source>Over HTTP on this port</source>
        <translation>По HTTP на этом порту</translation>
    </message>
    <message>
        <source>Over FTP on this port</source>
        <translation>По FTP на этом порту</translation>
    </message>
    <message>
        <source>End the publications of a repository, or those on a port</source>
        <translation>Прекратить публикации репозитория или публикации на порту</translation>
    </message>
    <message>
        <source>List what this machine publishes</source>
        <translation>Перечислить, что публикует эта машина</translation>
    </message>
    <message>
        <source>Print the line with which other machines use a published repository</source>
        <translation>Вывести строку, с которой другие машины используют опубликованный репозиторий</translation>
    </message>
    <message>
        <source>The name or address of this machine for them</source>
        <translation>Имя или адрес этой машины для них</translation>
    </message>
    <message>
        <source>The publication on this port</source>
        <translation>Публикация на этом порту</translation>
    </message>
    <message>
        <source>Accept the repository without a valid signature</source>
        <translation>Принимать репозиторий без действительной подписи</translation>
    </message>
    <message>
        <source>Print the result as JSON, and errors as JSON on standard error</source>
        <translation>Вывести результат как JSON, а ошибки как JSON в стандартный поток ошибок</translation>
    </message>
    <message>
        <source>Print nothing but results and errors</source>
        <translation>Выводить только результаты и ошибки</translation>
    </message>
    <message>
        <source>Wait so long for another job that works on the repository</source>
        <translation>Столько ждать другое задание, которое работает с репозиторием</translation>
    </message>
    <message>
        <source>The answer is yes, since nobody is there to ask.</source>
        <translation>Ответ «да», так как спросить некого.</translation>
    </message>
    <message>
        <source>Yes or no? [y/N]</source>
        <translation>Да или нет? [д/Н]</translation>
    </message>
    <message>
        <source>yes</source>
        <comment>answer to a question</comment>
        <translation>да</translation>
    </message>
    <message>
        <source>Names have small letters, digits, hyphens and, for code names and suites, dots.</source>
        <translation>Имена состоят из строчных букв, цифр, дефисов, а кодовые имена и выпуски — также из точек.</translation>
    </message>
    <message>
        <source>The value of %1 is one line without #.</source>
        <translation>Значение %1 — одна строка без #.</translation>
    </message>
    <message>
        <source>The value of %1 is yes or no.</source>
        <translation>Значение %1 — yes или no.</translation>
    </message>
    <message>
        <source>A code name, architectures and components are needed.</source>
        <translation>Нужны кодовое имя, архитектуры и компоненты.</translation>
    </message>
    <message>
        <source>A repository cannot have the architecture all: packages for all go to each of its own.</source>
        <translation>У репозитория не может быть архитектуры all: такие пакеты попадают в каждую из его архитектур.</translation>
    </message>
    <message>
        <source>The path or the code name is not valid.</source>
        <translation>Путь или кодовое имя недопустимы.</translation>
    </message>
    <message>
        <source>%1 %2: %3 instead of %4, from %5</source>
        <translation>%1 %2: %3 вместо %4, из %5</translation>
    </message>
    <message>
        <source>No source of apt offers %1.</source>
        <translation>Ни один источник apt не предлагает %1.</translation>
    </message>
    <message>
        <source>--%1 needs a number of seconds, and not %2</source>
        <translation>--%1 требует число секунд, а не %2</translation>
    </message>
    <message>
        <source>--%1 cannot be %2; it can be: %3</source>
        <translation>--%1 не может быть %2; возможные значения: %3</translation>
    </message>
    <message>
        <source>A command is missing.</source>
        <translation>Не указана команда.</translation>
    </message>
    <message>
        <source>There is no command %1.</source>
        <translation>Команды %1 нет.</translation>
    </message>
    <message>
        <source>The command is: %1</source>
        <translation>Команда такая: %1</translation>
    </message>
    <message>
        <source>velt-admin-repo-cli --help shows all commands.</source>
        <translation>velt-admin-repo-cli --help показывает все команды.</translation>
    </message>
    <message>
        <source>There are no package files.</source>
        <translation>Файлов пакетов нет.</translation>
    </message>
    <message>
        <source>There is no port %1.</source>
        <translation>Порта %1 не существует.</translation>
    </message>
    <message>
        <source>Stopped. The system may still do what it was asked for.</source>
        <translation>Остановлено. Система ещё может выполнить то, о чём её просили.</translation>
    </message>
    <message>
        <source>The package %1, which serves the repository, is not installed.</source>
        <translation>Пакет %1, который отдаёт репозиторий, не установлен.</translation>
    </message>
    <message>
        <source>%1 is published already, over %2 on the port %3.</source>
        <translation>%1 уже опубликован: %2, порт %3.</translation>
    </message>
    <message>
        <source>The repository is not published.</source>
        <translation>Репозиторий не опубликован.</translation>
    </message>
    <message>
        <source>%1 is published over %2 on the port %3.</source>
        <translation>%1 опубликован: %2, порт %3.</translation>
    </message>
    <message>
        <source>--http and --ftp cannot stand together.</source>
        <translation>--http и --ftp нельзя указать вместе.</translation>
    </message>
    <message>
        <source>The repository is not unpublished.</source>
        <translation>Репозиторий не снят с публикации.</translation>
    </message>
    <message>
        <source>%1 is not published.</source>
        <translation>%1 не опубликован.</translation>
    </message>
    <message>
        <source>Somebody else has set up its server.</source>
        <translation>Его сервер настроил кто-то другой.</translation>
    </message>
    <message>
        <source>%1 is no longer published over %2 on the port %3.</source>
        <translation>%1 больше не опубликован: %2, порт %3.</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>неизвестно</translation>
    </message>
    <message>
        <source>%1 is no name or address.</source>
        <translation>%1 — не имя и не адрес.</translation>
    </message>
    <message>
        <source>With --port the line is that of a publication over HTTP.</source>
        <translation>С --port выводится строка публикации по HTTP.</translation>
    </message>
    <message>
        <source>%1 is not published on the port %2 now.</source>
        <translation>%1 сейчас не опубликован на порту %2.</translation>
    </message>
    <message>
        <source>%1 is not empty. Is everything in it to be deleted?</source>
        <translation>%1 не пуста. Удалить всё её содержимое?</translation>
    </message>
    <message>
        <source>No repository was made.</source>
        <translation>Репозиторий не создан.</translation>
    </message>
    <message>
        <source>Made the repository %1.</source>
        <translation>Репозиторий %1 создан.</translation>
    </message>
    <message>
        <source>Path: %1</source>
        <translation>Путь: %1</translation>
    </message>
    <message>
        <source>Code name: %1</source>
        <translation>Кодовое имя: %1</translation>
    </message>
    <message>
        <source>Suite: %1</source>
        <translation>Выпуск (suite): %1</translation>
    </message>
    <message>
        <source>Version: %1</source>
        <translation>Версия: %1</translation>
    </message>
    <message>
        <source>Origin: %1</source>
        <translation>Происхождение: %1</translation>
    </message>
    <message>
        <source>Label: %1</source>
        <translation>Метка: %1</translation>
    </message>
    <message>
        <source>Architectures: %1</source>
        <translation>Архитектуры: %1</translation>
    </message>
    <message>
        <source>Components: %1</source>
        <translation>Компоненты: %1</translation>
    </message>
    <message>
        <source>Signed with the default key</source>
        <translation>Подписан ключом по умолчанию</translation>
    </message>
    <message>
        <source>Not signed with the default key</source>
        <translation>Не подписан ключом по умолчанию</translation>
    </message>
    <message>
        <source>Packages for %1: %2</source>
        <translation>Пакеты для %1: %2</translation>
    </message>
    <message>
        <source>The repository %1 cannot be read.</source>
        <translation>Не удалось прочитать репозиторий %1.</translation>
    </message>
    <message>
        <source>It has no file conf/distributions.</source>
        <translation>В нём нет файла conf/distributions.</translation>
    </message>
    <message>
        <source>Its file conf/distributions names no distribution.</source>
        <translation>Его файл conf/distributions не называет дистрибутив.</translation>
    </message>
    <message>
        <source>Its indices are missing.</source>
        <translation>Его индексы отсутствуют.</translation>
    </message>
    <message>
        <source>The repository has no package %1.</source>
        <translation>В репозитории нет пакета %1.</translation>
    </message>
    <message>
        <source>The folder %1 is no repository.</source>
        <translation>Папка %1 — не репозиторий.</translation>
    </message>
    <message>
        <source>Another job still works on the repository %1.</source>
        <translation>Другое задание всё ещё работает с репозиторием %1.</translation>
    </message>
    <message>
        <source>Added: %1</source>
        <translation>Добавлен: %1</translation>
    </message>
    <message>
        <source>Replaced: %1</source>
        <translation>Заменён: %1</translation>
    </message>
    <message>
        <source>Removed: %1</source>
        <translation>Удалён: %1</translation>
    </message>
    <message>
        <source>No key is chosen to sign packages with. Name one with --key.</source>
        <translation>Ключ для подписи пакетов не выбран. Укажите его с --key.</translation>
    </message>
    <message>
        <source>not in the key ring</source>
        <translation>отсутствует в связке ключей</translation>
    </message>
    <message>
        <source>The key %1 cannot sign: %2</source>
        <translation>Ключ %1 не может подписывать: %2</translation>
    </message>
    <message>
        <source>Signed: %1</source>
        <translation>Подписан: %1</translation>
    </message>
    <message>
        <source>gpg does not list its keys.</source>
        <translation>gpg не показывает свои ключи.</translation>
    </message>
    <message>
        <source>chosen</source>
        <translation>выбран</translation>
    </message>
    <message>
        <source>Administers local repositories of Debian packages.</source>
        <translation>Управляет локальными репозиториями пакетов Debian.</translation>
    </message>
    <message>
        <source>Usage: %1 COMMAND ...</source>
        <translation>Использование: %1 КОМАНДА ...</translation>
    </message>
    <message>
        <source>Options of all commands:</source>
        <translation>Параметры всех команд:</translation>
    </message>
    <message>
        <source>%1 COMMAND --help explains a command.</source>
        <translation>%1 КОМАНДА --help объясняет команду.</translation>
    </message>
    <message>
        <source>Usage: %1</source>
        <translation>Использование: %1</translation>
    </message>
    <message>
        <source>Options:</source>
        <translation>Параметры:</translation>
    </message>
    <message>
        <source>Delete what is in the folder; --yes does not do that</source>
        <translation>Удалить содержимое папки; --yes этого не делает</translation>
    </message>
    <message>
        <source>Answer questions with yes, but not to delete a folder, give up a package or trust programs</source>
        <translation>Отвечать на вопросы «да», но не для того, чтобы удалить папку, отказаться от пакета или доверять программам</translation>
    </message>
    <message>
        <source>Trust programs that the settings of the repository name</source>
        <translation>Доверять программам, которые названы в настройках репозитория</translation>
    </message>
    <message>
        <source>The result could not be written.</source>
        <translation>Не удалось записать результат.</translation>
    </message>
    <message>
        <source>The answer is no, since nobody is there to ask.</source>
        <translation>Ответ «нет», так как спросить некого.</translation>
    </message>
    <message>
        <source>The option %1 answers with yes.</source>
        <translation>Параметр %1 отвечает «да».</translation>
    </message>
    <message>
        <source>The indices of the repository may be older than its database, so they may not name all that it holds.</source>
        <translation>Индексы репозитория могут быть старше его базы данных и называть не всё, что в нём есть.</translation>
    </message>
    <message>
        <source>Checked: %1, not installable: %2, undecided: %3</source>
        <translation>Проверено: %1, нельзя установить: %2, не решено: %3</translation>
    </message>
    <message>
        <source>%1 recommends what cannot be installed with it: %2</source>
        <translation>%1 рекомендует то, что нельзя установить вместе с ним: %2</translation>
    </message>
    <message>
        <source>--%1 is an option of --complete.</source>
        <translation>--%1 относится к --complete.</translation>
    </message>
    <message>
        <source>--against is for the check of names; --complete has --base.</source>
        <translation>--against относится к проверке имён; у --complete есть --base.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an architecture.</source>
        <translation>«%1» — не архитектура.</translation>
    </message>
    <message>
        <source>Check whether the packages can really be installed, with all that they need, and say why the others cannot</source>
        <translation>Проверить, можно ли действительно установить пакеты со всем, что им нужно, и сказать, почему нельзя остальные</translation>
    </message>
    <message>
        <source>With --complete, what else there is: public (the default) are apt&apos;s sources, essential is what every system has, nothing is the repository alone; or another REPOSITORY</source>
        <translation>С --complete: что есть ещё: public (по умолчанию) — источники apt, essential — то, что есть в каждой системе, nothing — только репозиторий; или другой РЕПОЗИТОРИЙ</translation>
    </message>
    <message>
        <source>With --complete, a further architecture of the system, as dpkg knows foreign architectures; can be repeated</source>
        <translation>С --complete: ещё одна архитектура системы, как чужие архитектуры у dpkg; можно повторять</translation>
    </message>
    <message>
        <source>Only show what would change, and what could not be installed then</source>
        <translation>Только показать, что изменилось бы и что нельзя было бы установить</translation>
    </message>
    <message>
        <source>List the restore points of a repository, or those that have changed a package, with their changes</source>
        <translation>Показать точки восстановления репозитория с их изменениями или только те, что изменили пакет</translation>
    </message>
    <message>
        <source>Only so many of the newest</source>
        <translation>Только столько самых новых</translation>
    </message>
    <message>
        <source>First delete the oldest restore points that are more than the settings allow</source>
        <translation>Сначала удалить самые старые точки восстановления сверх разрешённых настройками</translation>
    </message>
    <message>
        <source>Show what has changed from the state before a restore point until now, or until the state before another one</source>
        <translation>Показать, что изменилось от состояния перед точкой восстановления до настоящего момента или до состояния перед другой точкой</translation>
    </message>
    <message>
        <source>Go back to the state before a restore point, or bring back a package</source>
        <translation>Вернуться к состоянию перед точкой восстановления или вернуть пакет</translation>
    </message>
    <message>
        <source>Only bring back this package, as it was before the restore point</source>
        <translation>Вернуть только этот пакет, каким он был перед точкой восстановления</translation>
    </message>
    <message>
        <source>The preview is without the packages on which these depend.</source>
        <translation>Предпросмотр не включает пакеты, от которых эти зависят.</translation>
    </message>
    <message>
        <source>The history has no restore point %1.</source>
        <translation>В истории нет точки восстановления %1.</translation>
    </message>
    <message>
        <source>The history has damaged records, so it is not known what has changed since.</source>
        <translation>В истории есть повреждённые записи, поэтому неизвестно, что изменилось с тех пор.</translation>
    </message>
    <message>
        <source>Changed by another program</source>
        <translation>Изменено другой программой</translation>
    </message>
    <message>
        <source>%1 (no way back: %2)</source>
        <translation>%1 (вернуться нельзя: %2)</translation>
    </message>
    <message>
        <source>The description was changed</source>
        <translation>Описание было изменено</translation>
    </message>
    <message>
        <source>And %1 more changes.</source>
        <translation>И ещё изменений: %1.</translation>
    </message>
    <message>
        <source>The description of the repository changes too.</source>
        <translation>Изменится и описание репозитория.</translation>
    </message>
    <message>
        <source>Do you want to go back to the state before the restore point %1 (%2)?</source>
        <translation>Вернуться к состоянию перед точкой восстановления %1 (%2)?</translation>
    </message>
    <message>
        <source>Before the restore point %1 the repository had no other version of %2 than now.</source>
        <translation>Перед точкой восстановления %1 в репозитории не было другой версии %2, чем сейчас.</translation>
    </message>
    <message>
        <source>Do you want to bring back %1?</source>
        <translation>Вернуть %1?</translation>
    </message>
    <message>
        <source>--limit needs a number greater than 0, and not %1</source>
        <translation>Для --limit нужно число больше 0, а не %1</translation>
    </message>
    <message>
        <source>No states are kept: %1</source>
        <translation>Состояния не сохраняются: %1</translation>
    </message>
    <message>
        <source>The history takes %1.</source>
        <translation>История занимает %1.</translation>
    </message>
    <message>
        <source>Freed: %1</source>
        <translation>Освобождено: %1</translation>
    </message>
    <message>
        <source>The state before the newest change is not kept, so this goes back further.</source>
        <translation>Состояние перед самым новым изменением не сохранено, поэтому возврат идёт дальше.</translation>
    </message>
    <message>
        <source>The history has no state to go back to.</source>
        <translation>В истории нет состояния, к которому можно вернуться.</translation>
    </message>
    <message>
        <source>%1, from %2</source>
        <translation>%1, из %2</translation>
    </message>
    <message>
        <source>The state before the newest change is not kept. Name a point to go back further.</source>
        <translation>Состояние до последнего изменения не сохранено. Укажите точку, чтобы вернуться дальше.</translation>
    </message>
    <message>
        <source>What is in the repository, in one line</source>
        <translation>Что находится в репозитории, одной строкой</translation>
    </message>
    <message>
        <source>Sign the repository with this key: its fingerprint, or the end of it</source>
        <translation>Подписывать репозиторий этим ключом: отпечаток или его конец</translation>
    </message>
    <message>
        <source>Write lists of the packages&apos; files: yes, or words of reprepro separated by commas, such as .xz,udebs</source>
        <translation>Записывать списки файлов пакетов: yes или слова reprepro через запятую, например .xz,udebs</translation>
    </message>
    <message>
        <source>Clients refuse indices that have not been written for so many days</source>
        <translation>Клиенты отвергают индексы, которые не записывались столько дней</translation>
    </message>
    <message>
        <source>Copy packages from a repository to another one, or to another component of the same</source>
        <translation>Копировать пакеты из одного репозитория в другой или в другой компонент того же</translation>
    </message>
    <message>
        <source>The component into which the packages go</source>
        <translation>Компонент, в который попадают пакеты</translation>
    </message>
    <message>
        <source>Remove the packages where they were, once they are there</source>
        <translation>Удалить пакеты с прежнего места, когда они окажутся на новом</translation>
    </message>
    <message>
        <source>Change the description of a repository: codename, suite, version, architectures, components, origin, label, description, sign=yes|no, sign-key=KEY|default, contents=yes|no|LIST, valid-for=DAYS, or path, which moves it</source>
        <translation>Изменить описание репозитория: codename, suite, version, architectures, components, origin, label, description, sign=yes|no, sign-key=КЛЮЧ|default, contents=yes|no|СПИСОК, valid-for=ДНИ или path, что перемещает его</translation>
    </message>
    <message>
        <source>Go back to the state before the newest restore point, so that a second time undoes the first; restore goes further back</source>
        <translation>Вернуть состояние до новейшей точки восстановления: второй раз отменяет первый; дальше возвращает restore</translation>
    </message>
    <message>
        <source>Would be removed from %1: %2</source>
        <translation>Было бы удалено из %1: %2</translation>
    </message>
    <message>
        <source>Removed from %1: %2</source>
        <translation>Удалено из %1: %2</translation>
    </message>
    <message>
        <source>Within one repository, --component must name another component.</source>
        <translation>В пределах одного репозитория --component должен указывать другой компонент.</translation>
    </message>
    <message>
        <source>You cannot change the repository %1.</source>
        <translation>Вы не можете изменять репозиторий %1.</translation>
    </message>
    <message>
        <source>The packages are in this component already.</source>
        <translation>Пакеты уже находятся в этом компоненте.</translation>
    </message>
    <message>
        <source>The value of %1 is a number of days, such as 30, of %2 at most; 0 stands for no limit.</source>
        <translation>Значение %1 — число дней, например 30, не больше %2; 0 — без ограничения.</translation>
    </message>
    <message>
        <source>The value of %1 is a key, or default.</source>
        <translation>Значение %1 — ключ или default.</translation>
    </message>
    <message>
        <source>The repository is as it was before restore point %1.</source>
        <translation>Репозиторий такой, каким был до точки восстановления %1.</translation>
    </message>
    <message>
        <source>No packages differ.</source>
        <translation>Различий в пакетах нет.</translation>
    </message>
    <message>
        <source>Description: %1</source>
        <translation>Описание: %1</translation>
    </message>
    <message>
        <source>Contents: %1</source>
        <translation>Contents: %1</translation>
    </message>
    <message>
        <source>Valid for days: %1</source>
        <translation>Действителен, дней: %1</translation>
    </message>
    <message>
        <source>Signed with the key %1</source>
        <translation>Подписан ключом %1</translation>
    </message>
    <message>
        <source>Other field: %1</source>
        <translation>Другое поле: %1</translation>
    </message>
    <message>
        <source>All that the packages of the repository lack, or those that are named, with what that needs in turn</source>
        <translation>Всё, чего не хватает пакетам репозитория или названным из них, вместе с тем, что, в свою очередь, нужно найденному</translation>
    </message>
    <message>
        <source>Name the packages to fetch, or give --missing.</source>
        <translation>Назовите пакеты, которые нужно загрузить, или укажите --missing.</translation>
    </message>
    <message>
        <source>%1 %2 %3, %4, from %5, needed by %6</source>
        <translation>%1 %2 %3, %4, источник: %5, нужен пакетам: %6</translation>
    </message>
    <message>
        <source>To be fetched: %1, %2</source>
        <translation>Будет загружено: %1, %2</translation>
    </message>
    <message>
        <source>Give the repository the architectures and components that it lacks for them</source>
        <translation>Добавить в репозиторий архитектуры и компоненты, которых для них не хватает</translation>
    </message>
    <message>
        <source>Fetching the lists of your own sources</source>
        <translation>Загрузка списков ваших источников</translation>
    </message>
    <message>
        <source>--missing brings all that is needed, without --with-depends.</source>
        <translation>--missing берёт всё необходимое, без --with-depends.</translation>
    </message>
</context>
<context>
    <name>copyFile</name>
    <message>
        <source>This is the file itself.</source>
        <translation>Это сам файл.</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>List of packages to add to the repository</source>
        <translation>Список пакетов, добавляемых в репозиторий</translation>
    </message>
    <message>
        <source>Package files (.deb, .udeb)</source>
        <translation>Файлы пакетов (.deb, .udeb)</translation>
    </message>
    <message>
        <source>Velt admin repo tool</source>
        <translation>Средство управления репозиториями пакетов</translation>
    </message>
    <message>
        <source>These are too many files for one start of the program.</source>
        <translation>Слишком много файлов для одного запуска программы.</translation>
    </message>
    <message>
        <source>The program is running already and does not answer.</source>
        <translation>Программа уже запущена и не отвечает.</translation>
    </message>
    <message>
        <source>Nothing has been added.</source>
        <translation>Ничего не добавлено.</translation>
    </message>
</context>
</TS>
