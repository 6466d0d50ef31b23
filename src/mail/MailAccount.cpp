#include "mail/MailAccount.h"
