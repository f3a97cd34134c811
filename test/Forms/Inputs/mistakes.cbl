       identification division.
       program-id. mistakes.
       data division.
       working-storage section.
       01  customer-name           pic x(30).
       01  totals.
           05  amount              pic 9(5).
       01  other.
           05  amount              pic 9(5).
       procedure division.
       main-line.
           move spaces to custmer-name.
           perform man-line.
           add 1 to amount.
           ADDD 1 TO AMOUNT OF TOTALS.
           display "äöü" "日本" "é" missing-item.
	   display absent-item, lost-item.
           move 1.5 to customer-name (1:2), customer-name.
           goback.
