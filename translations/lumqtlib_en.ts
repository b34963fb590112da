<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>CAddBtn</name>
    <message>
        <source>Add</source>
        <translation>Add</translation>
    </message>
</context>
<context>
    <name>CBPComboxItem</name>
    <message>
        <source>%1 Free of %2</source>
        <translation>%1 Free of %2</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
</context>
<context>
    <name>CBPDateSelector</name>
    <message>
        <source>Date</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Open the calendar</source>
        <translation>Open the calendar</translation>
    </message>
    <message>
        <source>Calendar</source>
        <translation>Calendar</translation>
    </message>
    <message>
        <source>Previous month</source>
        <translation>Previous month</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>Next month</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>Year</translation>
    </message>
</context>
<context>
    <name>CBPGradientProgressBar</name>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
</context>
<context>
    <name>CBPIPInputWidget</name>
    <message>
        <source>IP address</source>
        <translation>IP address</translation>
    </message>
    <message>
        <source>Octet %1 of %2</source>
        <translation>Octet %1 of %2</translation>
    </message>
</context>
<context>
    <name>CBPJobWindow</name>
    <message>
        <source>Stopping...</source>
        <translation>Stopping...</translation>
    </message>
    <message>
        <source>The job stops as soon as it can</source>
        <translation>The job stops as soon as it can</translation>
    </message>
    <message>
        <source>About %1 min left</source>
        <translation>About %1 min left</translation>
    </message>
    <message>
        <source>About %1 s left</source>
        <translation>About %1 s left</translation>
    </message>
</context>
<context>
    <name>CBPPopWnd</name>
    <message>
        <source>Add</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Retry</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Continue</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Skip</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Browse</translation>
    </message>
    <message>
        <source>Reboot</source>
        <translation>Reboot</translation>
    </message>
    <message>
        <source>SkipAll</source>
        <translation>Skip all</translation>
    </message>
    <message>
        <source>Erase</source>
        <translation>Erase</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Change</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quit</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Restart now</source>
        <translation>Restart now</translation>
    </message>
    <message>
        <source>Restart later</source>
        <translation>Restart later</translation>
    </message>
</context>
<context>
    <name>CBPSearchEdit</name>
    <message>
        <source>Clear</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Search</translation>
    </message>
</context>
<context>
    <name>CBPWinFrmTitle</name>
    <message>
        <source>Limited-time Offer</source>
        <translation>Limited-time Offer</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimize</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restore</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximize</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>Online Support</source>
        <translation>Online Support</translation>
    </message>
</context>
<context>
    <name>CEditTimeEdit</name>
    <message>
        <source>Add a time</source>
        <translation>Add a time</translation>
    </message>
    <message>
        <source>Time %1</source>
        <translation>Time %1</translation>
    </message>
    <message>
        <source>Remove time %1</source>
        <translation>Remove time %1</translation>
    </message>
</context>
<context>
    <name>CMsgBox</name>
    <message>
        <source>{caption}Message</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>{caption}Question</source>
        <translation>Question</translation>
    </message>
    <message>
        <source>{caption}Warning</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>{caption}Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Please enter the dir name:</source>
        <translation>Please enter the dir name:</translation>
    </message>
    <message>
        <source>Please enter the password.</source>
        <translation>Please enter the password.</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>User name</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Password</translation>
    </message>
    <message>
        <source>Proceed</source>
        <translation>Proceed</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>\</source>
        <translation>\</translation>
    </message>
</context>
<context>
    <name>lumqt::PathRows</name>
    <message>
        <source>Locations</source>
        <translation>Locations</translation>
    </message>
</context>
</TS>
