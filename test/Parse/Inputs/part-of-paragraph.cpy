           IF CUSTOMER-NAME = SPACES
               PERFORM 9000-ABEND
           END-IF
           MOVE CUSTOMER-NAME TO
