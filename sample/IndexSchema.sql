CREATE TABLE properties (
    ROWID INTEGER PRIMARY KEY AUTOINCREMENT,
    key TEXT NOT NULL UNIQUE,
    value TEXT
);
CREATE TABLE mailboxes (
    ROWID INTEGER PRIMARY KEY AUTOINCREMENT,
    url TEXT NOT NULL UNIQUE,
    total_count INTEGER NOT NULL DEFAULT 0,
    unread_count INTEGER NOT NULL DEFAULT 0,
    deleted_count INTEGER NOT NULL DEFAULT 0,
    unseen_count INTEGER NOT NULL DEFAULT 0,
    unread_count_adjusted_for_duplicates INTEGER NOT NULL DEFAULT 0,
    change_identifier TEXT,
    source INTEGER REFERENCES mailboxes(ROWID),
    alleged_change_identifier TEXT
);
CREATE TABLE addresses (
    ROWID INTEGER PRIMARY KEY AUTOINCREMENT,
    address TEXT COLLATE NOCASE NOT NULL,
    comment TEXT NOT NULL,
    UNIQUE (address, comment)
);
CREATE TABLE subjects (
    ROWID INTEGER PRIMARY KEY AUTOINCREMENT,
    subject TEXT COLLATE RTRIM NOT NULL UNIQUE
);
CREATE TABLE summaries (
    ROWID INTEGER PRIMARY KEY AUTOINCREMENT,
    summary TEXT NOT NULL
);
CREATE TABLE message_global_data (
    ROWID INTEGER PRIMARY KEY AUTOINCREMENT,
    message_id INTEGER NOT NULL,
    message_id_header TEXT,
    model_category INTEGER,
    model_subcategory INTEGER,
    read_later_date INTEGER,
    follow_up_start_date INTEGER,
    follow_up_end_date INTEGER
);
CREATE TABLE messages (
    ROWID INTEGER PRIMARY KEY AUTOINCREMENT,
    message_id INTEGER NOT NULL DEFAULT 0,
    global_message_id INTEGER NOT NULL REFERENCES message_global_data(ROWID),
    remote_id INTEGER,
    document_id TEXT,
    sender INTEGER REFERENCES addresses(ROWID),
    subject_prefix TEXT,
    subject INTEGER REFERENCES subjects(ROWID),
    summary INTEGER REFERENCES summaries(ROWID),
    date_sent INTEGER,
    date_received INTEGER,
    mailbox INTEGER NOT NULL REFERENCES mailboxes(ROWID) ON DELETE CASCADE,
    remote_mailbox INTEGER REFERENCES mailboxes(ROWID),
    flags INTEGER NOT NULL DEFAULT 0,
    read INTEGER NOT NULL DEFAULT 0,
    flagged INTEGER NOT NULL DEFAULT 0,
    deleted INTEGER NOT NULL DEFAULT 0,
    size INTEGER NOT NULL DEFAULT 0,
    conversation_id INTEGER NOT NULL DEFAULT 0,
    date_last_viewed INTEGER,
    list_id_hash INTEGER,
    unsubscribe_type INTEGER,
    searchable_message INTEGER,
    brand_indicator INTEGER,
    display_date INTEGER,
    color TEXT,
    type INTEGER,
    fuzzy_ancestor INTEGER,
    automated_conversation INTEGER DEFAULT 0,
    root_status INTEGER DEFAULT -1,
    flag_color INTEGER
);
CREATE TABLE recipients (
    ROWID INTEGER PRIMARY KEY AUTOINCREMENT,
    message INTEGER NOT NULL REFERENCES messages(ROWID) ON DELETE CASCADE,
    address INTEGER NOT NULL REFERENCES addresses(ROWID),
    type INTEGER,
    position INTEGER
);
CREATE TABLE labels (
    message_id INTEGER NOT NULL REFERENCES messages(ROWID) ON DELETE CASCADE,
    mailbox_id INTEGER NOT NULL REFERENCES mailboxes(ROWID) ON DELETE CASCADE,
    PRIMARY KEY (message_id, mailbox_id)
) WITHOUT ROWID;
CREATE TABLE attachments (
    ROWID INTEGER PRIMARY KEY AUTOINCREMENT,
    message INTEGER NOT NULL REFERENCES messages(ROWID) ON DELETE CASCADE,
    attachment_id TEXT,
    name TEXT
);
CREATE TABLE conversations (
    conversation_id INTEGER PRIMARY KEY AUTOINCREMENT,
    flags INTEGER NOT NULL DEFAULT 0,
    sync_key TEXT
);
CREATE INDEX messages_mailbox_date_received_index ON messages (mailbox, date_received);
CREATE INDEX messages_mailbox_date_sent_index ON messages (mailbox, date_sent);
CREATE INDEX messages_sender_index ON messages (sender);
CREATE INDEX messages_subject_index ON messages (subject, fuzzy_ancestor);
CREATE INDEX messages_message_id_mailbox_index ON messages (message_id, mailbox);
CREATE INDEX messages_global_message_id_index ON messages (global_message_id);
CREATE INDEX messages_conversation_id_index ON messages (conversation_id);
CREATE INDEX recipients_message_position_index ON recipients (message, position);
CREATE INDEX recipients_address_index ON recipients (address);
CREATE INDEX labels_mailbox_id_index ON labels (mailbox_id);
CREATE INDEX attachments_message_index ON attachments (message);
CREATE INDEX message_global_data_header_index
    ON message_global_data (message_id_header COLLATE NOCASE);
