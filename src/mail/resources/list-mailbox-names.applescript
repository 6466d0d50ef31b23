tell application "Mail"
    set out to ""
    set AppleScript's text item delimiters to linefeed
    repeat with i from 1 to (count of accounts)
        set out to out & "@@" & (name of account i) & linefeed
        try
            set out to out & ((name of every mailbox of account i) as text) & linefeed
        end try
    end repeat
    set AppleScript's text item delimiters to ""
    return out
end tell