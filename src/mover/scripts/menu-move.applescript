on run argv
    set acctName to item 1 of argv as string
    set srcName to item 2 of argv as string
    set dstName to item 3 of argv as string
    set idFile to item 4 of argv as string
    set maxN to (item 5 of argv) as integer

    set fh to open for access (POSIX file idFile)
    set targets to read fh as «class utf8»
    close access fh

    tell application "Mail"
        activate
        set acct to missing value
        repeat with a in accounts
            try
                if (email addresses of a) contains acctName then
                    set acct to a
                    exit repeat
                end if
            end try
        end repeat
        if acct is missing value then
            repeat with a in accounts
                if (name of a as string) is acctName then
                    set acct to a
                    exit repeat
                end if
            end repeat
        end if
        if acct is missing value then error "Mail has no account for " & acctName
        set mailAcctName to (name of acct as string)
        set src to mailbox srcName of acct

        -- Mail with every window closed has no viewer at all, and asking for
        -- one is an error rather than an empty list.
        if (count of message viewers) is 0 then
            make new message viewer
            delay 1
        end if
        set v to message viewer 1
        set selected mailboxes of v to {src}
        delay 1

        -- read, match and pick without leaving this block
        set mids to message id of every message of src
        set picked to {}
        set want to {}
        set i to 0
        repeat with k from 1 to (count of mids)
            set m to item k of mids
            if targets contains (linefeed & m & linefeed) then
                set end of picked to (message k of src)
                set end of want to m
                set i to i + 1
                if i ≥ maxN then exit repeat
            end if
        end repeat
        if (count of picked) is 0 then return "0|0|none of them are in " & srcName

        set selected messages of v to picked
        delay 1
        set got to count of (selected messages of v)
        if got is 0 then
            -- a viewer mid-redraw drops the first attempt often enough to be
            -- worth one more try before calling it stuck
            set selected messages of v to picked
            delay 2
            set got to count of (selected messages of v)
        end if
        if got is 0 then return "0|0|the viewer would not select anything"
    end tell

    tell application "System Events"
        tell process "Mail"
            set sub to menu 1 of menu item "Move to" of menu "Message" of menu bar 1
            set inAcct to false
            set clicked to false
            repeat with mi in (every menu item of sub)
                set n to name of mi
                if n is not missing value then
                    if n is mailAcctName then
                        set inAcct to true
                    else if inAcct and n is dstName then
                        if enabled of mi then
                            click mi
                            set clicked to true
                        end if
                        exit repeat
                    end if
                end if
            end repeat
            if not clicked then
                return "0|0|Mail's Move to menu is closed to us - Mail has to be the front app"
            end if
        end tell
    end tell

    delay 2

    -- Which of the ones we picked actually left. Asked, not assumed: the
    -- scripted mover reported six thousand successes while moving nothing.
    set gone to {}
    tell application "Mail"
        set nowIDs to message id of every message of src
        set AppleScript's text item delimiters to linefeed
        set nowText to linefeed & (nowIDs as string) & linefeed
        set AppleScript's text item delimiters to ""
        repeat with m in want
            if nowText does not contain (linefeed & (m as string) & linefeed) then
                set end of gone to (m as string)
            end if
        end repeat
    end tell

    set AppleScript's text item delimiters to linefeed
    set goneText to gone as string
    set AppleScript's text item delimiters to ""
    return (got as string) & "|" & ((count of gone) as string) & "|" & goneText
end run