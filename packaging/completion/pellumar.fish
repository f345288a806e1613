# Completion of pellumar(1) for fish.

complete -c pellumar -f
complete -c pellumar -n __fish_use_subcommand -a zip -d 'Make an archive in the workspace'
complete -c pellumar -n __fish_use_subcommand -a unzip -d 'Extract an archive into the workspace'
complete -c pellumar -n '__fish_seen_subcommand_from zip' -F
complete -c pellumar -n '__fish_seen_subcommand_from unzip' -k -a '(__fish_complete_suffix .zip)'
complete -c pellumar -n '__fish_seen_subcommand_from unzip' -l password-file -r -F -d 'File with the password'
complete -c pellumar -l documents -x -a '(__fish_complete_directories)' -d 'Folder of the workspace'
complete -c pellumar -s q -l quiet -d 'Print nothing but paths and errors'
complete -c pellumar -s 0 -l null -d 'End each path with a NUL'
complete -c pellumar -s h -l help -d 'Print a summary of the options'
complete -c pellumar -l version -d 'Print the version'
