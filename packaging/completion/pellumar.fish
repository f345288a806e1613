# Completion of pellumar(1) for fish.

function __pellumar_entries -d 'The names in the archive on the line'
    set -l archive (commandline -opc | string match -i '*.zip')[1]
    test -n "$archive"; and pellumar --quiet list --names -- "$archive" 2>/dev/null
end

set -l reading extract list cat test salvage unzip

complete -c pellumar -f
complete -c pellumar -n __fish_use_subcommand -a create -d 'Make an archive of files and whole folders'
complete -c pellumar -n __fish_use_subcommand -a extract -d 'Extract an archive, or some of it'
complete -c pellumar -n __fish_use_subcommand -a list -d 'Tell what an archive holds'
complete -c pellumar -n __fish_use_subcommand -a cat -d 'Write what entries hold to standard output'
complete -c pellumar -n __fish_use_subcommand -a test -d 'Read archives to the end and tell what is wrong'
complete -c pellumar -n __fish_use_subcommand -a salvage -d 'Get what is whole out of a damaged archive'
complete -c pellumar -n __fish_use_subcommand -a zip -d 'Make an archive in the workspace'
complete -c pellumar -n __fish_use_subcommand -a unzip -d 'Extract an archive into the workspace'
complete -c pellumar -n '__fish_seen_subcommand_from zip create' -F
complete -c pellumar -n "__fish_seen_subcommand_from $reading" -k -a '(__fish_complete_suffix .zip)'
complete -c pellumar -n '__fish_seen_subcommand_from extract list cat' -a '(__pellumar_entries)'
complete -c pellumar -n '__fish_seen_subcommand_from create' -l encryption -x -a 'aes256 aes192 aes128 traditional' -d 'How to encrypt'
complete -c pellumar -n '__fish_seen_subcommand_from create' -l exclude -x -d 'Leave out what fits the pattern'
complete -c pellumar -n '__fish_seen_subcommand_from create' -s f -l force -d 'Replace an archive that is there'
complete -c pellumar -n '__fish_seen_subcommand_from create' -l from-list -r -F -d 'Take what this file lists'
complete -c pellumar -n '__fish_seen_subcommand_from create' -l level -x -a '1 2 3 4 5 6 7 8 9 store' -d 'How small'
complete -c pellumar -n '__fish_seen_subcommand_from create' -l reproducible -d 'Same bytes for the same files'
complete -c pellumar -n '__fish_seen_subcommand_from extract salvage' -l to -x -a '(__fish_complete_directories)' -d 'Extract into this folder'
complete -c pellumar -n '__fish_seen_subcommand_from extract' -l overwrite -d 'Replace files that are there'
complete -c pellumar -n '__fish_seen_subcommand_from extract' -l skip -d 'Leave files that are there'
complete -c pellumar -n '__fish_seen_subcommand_from extract' -l rename -d 'Extract under other names'
complete -c pellumar -n '__fish_seen_subcommand_from extract' -l strip -x -d 'Leave out leading parts of names'
complete -c pellumar -n '__fish_seen_subcommand_from extract' -l sync -d 'Return when all is on the disk'
complete -c pellumar -n '__fish_seen_subcommand_from list' -l names -d 'Print names alone'
complete -c pellumar -n '__fish_seen_subcommand_from list' -l json -d 'Print everything as JSON'
complete -c pellumar -n '__fish_seen_subcommand_from create extract cat test salvage unzip' -l password-file -r -F -d 'File with the password'
complete -c pellumar -n '__fish_use_subcommand; or __fish_seen_subcommand_from zip unzip' -l documents -x -a '(__fish_complete_directories)' -d 'Folder of the workspace'
complete -c pellumar -s q -l quiet -d 'Print nothing but what was asked for, and errors'
complete -c pellumar -s 0 -l null -d 'End each path with a NUL'
complete -c pellumar -s h -l help -d 'Print a summary of the options'
complete -c pellumar -n __fish_use_subcommand -l version -d 'Print the version'
