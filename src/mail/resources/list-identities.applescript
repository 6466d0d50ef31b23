tell application "Mail"
    set out to ""
    set ns to name of every account
    set es to email addresses of every account
    repeat with i from 1 to count of ns
        set addr to ""
        try
            set e to item i of es
            if class of e is list then
                if (count of e) > 0 then set addr to (item 1 of e) as string
            else
                set addr to e as string
            end if
        end try
        set out to out & "@@" & (item i of ns) & "|" & addr & linefeed
        repeat with mb in mailboxes of (account i)
            try
                set out to out & (name of mb) & linefeed
            end try
        end repeat
    end repeat
    return out
end tell